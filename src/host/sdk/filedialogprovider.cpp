#include "sdk/filedialogprovider.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <utility>

QList<QUrl> FileDialogProvider::createCommonUrls(bool withPictures, bool withDownloads,
                                                 bool withDocuments)
{
    QStringList folders {QDir::homePath(),
                         QStandardPaths::writableLocation(QStandardPaths::DesktopLocation),
                         QDir::rootPath()};
    if (withPictures)
        folders << QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (withDownloads)
        folders << QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    if (withDocuments)
        folders << QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QList<QUrl> urls;
    for (const QString& folder : qAsConst(folders)) {
        // Where the desktop has no folder of its own, a location may fall back to home.
        const QUrl url = QUrl::fromLocalFile(QDir::cleanPath(folder));
        if (!folder.isEmpty() && !urls.contains(url))
            urls.append(url);
    }
    return urls;
}

FileDialogProvider::FileDialogProvider(QList<QUrl> urls, QList<QPair<QString, QString>> filters,
                                       int selectedFilter)
    : m_lstUrls(std::move(urls))
    , m_lstFilters(std::move(filters))
    , m_iSelectedFilter(selectedFilter)
{ }

QList<QUrl> const& FileDialogProvider::urls() const
{
    return m_lstUrls;
}

QList<QPair<QString, QString>> const& FileDialogProvider::filters() const
{
    return m_lstFilters;
}

int FileDialogProvider::iSelectedFilter() const
{
    return m_iSelectedFilter;
}

QStringList FileDialogProvider::nameFilters() const
{
    QStringList names;
    for (const auto& filter : m_lstFilters)
        names << filter.first + QLatin1String(" (") + filter.second + QLatin1Char(')');
    if (names.isEmpty())
        names << QCoreApplication::translate("FileDialogProvider", "All Files")
                + QLatin1String(" (*)");
    return names;
}

QString FileDialogProvider::selectedNameFilter() const
{
    const QStringList names = nameFilters();
    const bool inRange = m_iSelectedFilter >= 0 && m_iSelectedFilter < names.size();
    return names.at(inRange ? m_iSelectedFilter : 0);
}
