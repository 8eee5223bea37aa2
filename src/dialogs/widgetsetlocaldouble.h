#ifndef PROPERTYBROWSER_EDITORS_WIDGETSETLOCALDOUBLE_H
#define PROPERTYBROWSER_EDITORS_WIDGETSETLOCALDOUBLE_H

#include <QString>
#include <QWidget>

#include <memory>

class Ui_WidgetSetLocalDouble;

namespace PropertyBrowser {
namespace Editors {

/// The "Manual Value" page of the value dialog for floating-point nodes: limits, step and
/// value in spin boxes. After each change it reports whether what stands there may be
/// accepted. The editor that opens it fills and reads the form; the panel never touches a node.
class WidgetSetLocalDouble : public QWidget
{
    Q_OBJECT

public:
    /// Makes the panel; its first report follows 10 ms later, once the caller has filled it.
    explicit WidgetSetLocalDouble(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~WidgetSetLocalDouble() override;

    /// 1 when the panel edits the limits (the value field is disabled), 2 when it edits the
    /// value.
    int detectEditType() const;

    /// The form; its widgets are the panel's interface to the editor.
    std::unique_ptr<Ui_WidgetSetLocalDouble> ui;

signals:
    /// The verdict on the panel's content; @p message says what is wrong when @p isValid is
    /// false. The panel always lets the verdict decide OK.
    void validationStateChanged(bool isValid, QString message, bool changeOKButtonState);

public slots:
    /// Checks the limits or the value and reports.
    void recalculateValidationState();
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
