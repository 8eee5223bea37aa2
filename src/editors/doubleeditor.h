#ifndef PROPERTYBROWSER_EDITORS_DOUBLEEDITOR_H
#define PROPERTYBROWSER_EDITORS_DOUBLEEDITOR_H

#include "editors/baseeditor.h"

#include <QString>

class QHBoxLayout;

namespace PropertyBrowser {

class WidgetProperty;

namespace Managers {
class DoublePropertyManager;
}

namespace Editors {

class ScientificFormatDoubleSpinBox;

/// Whether @p newValue differs from @p oldValue by enough to be a change when @p decimals
/// digits are shown: a difference below nine units of the next hidden digit is taken for the
/// noise that a round trip through the displayed text leaves behind.
bool computeValueChanged(double oldValue, double newValue, int decimals);

/// Edits a floating-point node in its row with a spin box and opens the value dialog, for the
/// value, the limits or the link, on the browse button. The value goes to the node only when the
/// user finishes editing, never while typing or stepping.
class DoubleEditor : public BaseEditor
{
    Q_OBJECT

public:
    /// Makes the editor of @p property, a row of the floating-point manager, in @p parent.
    DoubleEditor(QWidget* parent, WidgetProperty* property);

    /// Opens the value dialog with @p path preselected on its link page.
    void showLinkWidget(QString path) override;
    /// Pulls the node's value, step and range into the spin box.
    void readData() override;

public slots:
    /// The value dialog: the local value or, with editable limits, the limits; for an input
    /// also the link.
    void vButtonClicked();
    /// Sends the spin box's value when it is a change worth the name.
    void onEditingFinished();

private:
    Managers::DoublePropertyManager* manager() const;

    QHBoxLayout* m_rowLayout;
    ScientificFormatDoubleSpinBox* m_spinBox;
    double m_value;
    bool m_limitsEditable;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
