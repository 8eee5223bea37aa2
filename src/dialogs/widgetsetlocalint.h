#ifndef PROPERTYBROWSER_EDITORS_WIDGETSETLOCALINT_H
#define PROPERTYBROWSER_EDITORS_WIDGETSETLOCALINT_H

#include <QString>
#include <QWidget>

#include <cstdint>
#include <memory>

class Ui_WidgetSetLocalInt;

namespace PropertyBrowser {
namespace Editors {

/// The "Manual Value" page of the value dialog for integer nodes: limits, step, the value as
/// text and as a slider. After each change it reports whether what stands there may be
/// accepted. The editor that opens it fills and reads the form; the panel never touches a node.
class WidgetSetLocalInt : public QWidget
{
    Q_OBJECT

public:
    /// Makes the panel; its first report follows 10 ms later, once the caller has filled it.
    explicit WidgetSetLocalInt(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~WidgetSetLocalInt() override;

    /// 1 when the panel edits the limits (the value field is disabled), 2 when it edits the
    /// value.
    int detectEditType();

    /// The form; its widgets are the panel's interface to the editor.
    std::unique_ptr<Ui_WidgetSetLocalInt> ui;

signals:
    /// The verdict on the panel's content; @p message says what is wrong when @p isValid is
    /// false. The panel always lets the verdict decide OK.
    void validationStateChanged(bool isValid, QString message, bool changeOkButtonState);

public slots:
    /// The slider was dragged to @p value: the text follows.
    void onSliderMoved(int64_t value);
    /// The slider's value became @p nSliderValue: the text follows.
    void onSliderValueChanged(int64_t nSliderValue);
    /// The value was typed: the slider follows without writing back into the text.
    void onTextEdited(QString oTextValue);
    /// Checks the limits or the value and reports; nothing is reported while a field holds no
    /// number.
    void recalculateValidationState();

private:
    void showSliderValue(int64_t value);
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
