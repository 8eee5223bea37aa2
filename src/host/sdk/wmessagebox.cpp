#include "sdk/wmessagebox.h"

#include "sdk/dialogautomation.h"

#include <QCheckBox>
#include <QMessageBox>

namespace Utils {

namespace {

// Fills the parts every box shares; the box is made on the caller's stack.
void fillBox(QMessageBox& box, QMessageBox::Icon icon, const QString& title, const QString& text,
             const QString& informativeText, const QString& detail)
{
    box.setIcon(icon);
    box.setWindowTitle(title);
    box.setText(text);
    if (!informativeText.isEmpty())
        box.setInformativeText(informativeText);
    if (!detail.isEmpty())
        box.setDetailedText(detail);
    box.setStandardButtons(QMessageBox::Ok);
    box.setDefaultButton(QMessageBox::Ok);
}

QString boxTitle(const QString& kind)
{
    const QString application = QCoreApplication::applicationName();
    return application.isEmpty() ? kind : application + QLatin1String(" - ") + kind;
}

} // namespace

void WMessageBox::warning(const QString& text, const QString& informativeText, QWidget* parent)
{
    if (DialogAutomation::bIsEnabled()) {
        DialogAutomation::oAnswer(DialogAutomation::Warning, {text, informativeText}, parent,
                                  QVariant());
        return;
    }
    QMessageBox box(parent);
    fillBox(box, QMessageBox::Warning, boxTitle(tr("Warning")), text, informativeText, QString());
    box.exec();
}

void WMessageBox::info(const QString& text, const QString& informativeText, QWidget* parent,
                       const QString& detail)
{
    if (DialogAutomation::bIsEnabled()) {
        DialogAutomation::oAnswer(DialogAutomation::Info, {text, informativeText, detail}, parent,
                                  QVariant());
        return;
    }
    QMessageBox box(parent);
    fillBox(box, QMessageBox::Information, boxTitle(tr("Information")), text, informativeText,
            detail);
    box.exec();
}

void WMessageBox::critical(const QString& title, const QString& message, QWidget* parent)
{
    if (DialogAutomation::bIsEnabled()) {
        DialogAutomation::oAnswer(DialogAutomation::Critical, {title, message}, parent, QVariant());
        return;
    }
    QMessageBox box(parent);
    fillBox(box, QMessageBox::Critical, title, message, QString(), QString());
    box.exec();
}

bool WMessageBox::infoWithOption(const QString& text, const QString& optionText,
                                 const QString& informativeText, QWidget* parent,
                                 const QString& detail)
{
    if (DialogAutomation::bIsEnabled()) {
        return DialogAutomation::oAnswer(DialogAutomation::InfoWithOption,
                                         {text, optionText, informativeText, detail}, parent, false)
            .toBool();
    }
    QMessageBox box(parent);
    fillBox(box, QMessageBox::Information, boxTitle(tr("Information")), text, informativeText,
            detail);
    // The box owns the check box and deletes it with itself.
    auto* option = new QCheckBox(optionText);
    box.setCheckBox(option);
    box.exec();
    return option->isChecked();
}

} // namespace Utils
