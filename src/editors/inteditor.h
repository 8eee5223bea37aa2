#ifndef PROPERTYBROWSER_EDITORS_INTEDITOR_H
#define PROPERTYBROWSER_EDITORS_INTEDITOR_H

#include "editors/baseeditor.h"

#include <QString>

class QHBoxLayout;
class QLineEdit;
class QVBoxLayout;
class WSlider;

namespace PropertyBrowser {

class WidgetProperty;

namespace Editors {

/// The in-row editor of a 32-bit integer node: a line edit above a slider, and the value dialog
/// behind the browse button. Every value that it hands to its slider or to the manager is
/// snapped to the node's step.
///
/// When the node's limits are editable the row shows the value read only and the dialog edits
/// the limits alone.
class IntEditor : public BaseEditor
{
    Q_OBJECT

public:
    /// Makes the editor of @p property in @p parent and reads the node.
    IntEditor(QWidget* parent, WidgetProperty* property);

    /// Opens the value dialog with @p path preselected on its link page.
    void showLinkWidget(QString path) override;
    /// Pulls the node's local value, limits and text into the row; an output whose limits are
    /// not editable, or a node of an unknown kind, leaves the widgets as they are.
    void readData() override;
    /// Snaps the held value and sends it to the node.
    virtual void commitLocalData();

public slots:
    /// Runs the value dialog and sends what it was accepted with.
    void vButtonClicked();
    /// The slider was dragged to @p value: the text follows, nothing is sent.
    void onSliderMoved(int value);
    /// The slider's value became @p value: the text follows and the value is sent.
    void onSliderValueChanged(int value);
    /// The text was typed: the slider follows silently, nothing is sent.
    void onTextEdited(QString text);
    /// The typing ended: a number that differs from the held one is sent, unless the node is
    /// linked.
    void onEditFinished();

private:
    /// @p value on the step grid of the editor's limits.
    int snapped(int value) const;

    QHBoxLayout* m_rowLayout;
    QVBoxLayout* m_valueLayout;
    QLineEdit* m_lineEdit;
    WSlider* m_slider;
    int m_value;
    bool m_limitsEditable;
    int m_minimum;
    int m_maximum;
    int m_singleStep;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
