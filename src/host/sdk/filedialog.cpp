#include "sdk/filedialog.h"

#include "sdk/dialogautomation.h"

#include <QFileDialog>
#include <QRegularExpression>

namespace {

// "Halcon Script (*.hdev)" gives "hdev"; a filter of several patterns or with wild cards in the
// extension gives nothing, since no one extension is right for it.
QString singleSuffix(const QString& nameFilter)
{
    static const QRegularExpression pattern(QStringLiteral("\\(\\*\\.([A-Za-z0-9_]+)\\)$"));
    const QRegularExpressionMatch match = pattern.match(nameFilter);
    return match.hasMatch() ? match.captured(1) : QString();
}

} // namespace

FileDialog::FileDialog(const FileDialogProvider& provider, QWidget* parent)
    : m_oProvider(provider)
    , m_poParent(parent)
{ }

QUrl FileDialog::getOpenFileUrl()
{
    if (Utils::DialogAutomation::bIsEnabled()) {
        return Utils::DialogAutomation::oAnswer(Utils::DialogAutomation::OpenFile,
                                                m_oProvider.nameFilters(), m_poParent, QUrl())
            .toUrl();
    }
    return oRun(AcceptOpen, tr("Open File"), QString());
}

QUrl FileDialog::getSaveFileUrl(AcceptMode mode, const QString& suggestedName)
{
    if (Utils::DialogAutomation::bIsEnabled()) {
        return Utils::DialogAutomation::oAnswer(Utils::DialogAutomation::SaveFile,
                                                m_oProvider.nameFilters() << suggestedName,
                                                m_poParent, QUrl())
            .toUrl();
    }
    return oRun(mode, mode == AcceptSave ? tr("Save File") : tr("Open File"), suggestedName);
}

QUrl FileDialog::oRun(AcceptMode mode, const QString& title, const QString& suggestedName)
{
    QFileDialog dialog(m_poParent, title);
    // Qt's own dialog, because the platform's dialogs ignore the side bar places.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setAcceptMode(mode == AcceptSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(mode == AcceptSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setSidebarUrls(m_oProvider.urls());
    dialog.setNameFilters(m_oProvider.nameFilters());
    dialog.selectNameFilter(m_oProvider.selectedNameFilter());
    const QString suffix = singleSuffix(m_oProvider.selectedNameFilter());
    if (mode == AcceptSave && !suffix.isEmpty())
        dialog.setDefaultSuffix(suffix);
    if (!suggestedName.isEmpty())
        dialog.selectFile(suggestedName);
    // Room for the detail view's columns, which Qt's smallest size cuts to a few letters.
    dialog.resize(dialog.sizeHint().expandedTo(QSize(760, 460)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty())
        return QUrl();
    return dialog.selectedUrls().constFirst();
}
