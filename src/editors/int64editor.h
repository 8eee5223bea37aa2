#ifndef PROPERTYBROWSER_EDITORS_INT64EDITOR_H
#define PROPERTYBROWSER_EDITORS_INT64EDITOR_H

#include "editors/baseeditor.h"

#include <QString>

class Int64Slider;
class QHBoxLayout;
class QLineEdit;
class QVBoxLayout;

namespace PropertyBrowser {

class WidgetProperty;

namespace Managers {
class Int64PropertyManager;
}

namespace Editors {

/// The in-row editor of a signed 64-bit integer node: a line edit above a 64-bit slider, and the
/// value dialog behind the browse button. Values go to the node as they are; only the slider
/// keeps to the step.
///
/// When the node's limits are editable the row shows the value read only and the dialog edits
/// the limits alone.
class Int64Editor : public BaseEditor
{
    Q_OBJECT

public:
    /// Makes the editor of @p property in @p parent and reads the node.
    Int64Editor(QWidget* parent, WidgetProperty* property);

    /// Opens the value dialog with @p path preselected on its link page.
    void showLinkWidget(QString path) override;
    /// Pulls the node's local value, limits, text and link state into the row; an output whose
    /// limits are not editable, or a node of an unknown kind, leaves the widgets as they are.
    void readData() override;
    /// Sends the held value to the node.
    virtual void commitLocalData();

public slots:
    /// Runs the value dialog and sends what it was accepted with.
    void vButtonClicked();
    /// The slider was dragged to @p value: the text follows, nothing is sent.
    void onSliderMoved(long value);
    /// The slider's value became @p value: the text follows and the value is sent.
    void onSliderValueChanged(long value);
    /// The text was typed: the slider follows silently, nothing is sent.
    void onTextEdited(QString text);
    /// The typing ended: a number that differs from the held one is sent, unless the node is
    /// linked.
    void onEditFinished();

private:
    Managers::Int64PropertyManager* m_propertyManager;
    QHBoxLayout* m_rowLayout;
    QVBoxLayout* m_valueLayout;
    QLineEdit* m_lineEdit;
    Int64Slider* m_slider;
    long long m_value;
    bool m_limitsEditable;
    long long m_minimum;
    long long m_maximum;
    long long m_singleStep;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
