#ifndef SDK_FILEDIALOGPROVIDER_H
#define SDK_FILEDIALOGPROVIDER_H

#include "sdk/sdkglobal.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QUrl>

/// What a FileDialog offers: the places in its side bar, its file filters and the filter chosen
/// at the start.
class SDK_EXPORT FileDialogProvider
{
public:
    /// The usual side bar places: the home folder, the desktop and the file system's root, then
    /// the pictures, downloads and documents folders when the matching flag is set. A place
    /// that equals one before it is left out.
    static QList<QUrl> createCommonUrls(bool withPictures, bool withDownloads, bool withDocuments);

    /// Offers @p urls as side bar places and @p filters as (name, patterns) pairs, such as
    /// ("Halcon Script", "*.hdev"), with @p selectedFilter chosen at the start; an index outside
    /// the list chooses the first filter.
    FileDialogProvider(QList<QUrl> urls, QList<QPair<QString, QString>> filters,
                       int selectedFilter);

    /// The side bar places.
    QList<QUrl> const& urls() const;
    /// The filters as (name, patterns) pairs.
    QList<QPair<QString, QString>> const& filters() const;
    /// The index of the filter chosen at the start, as given.
    int iSelectedFilter() const;
    /// The filters as the dialog shows them, "Name (patterns)"; "All Files (*)" when there are
    /// none.
    QStringList nameFilters() const;
    /// The entry of nameFilters() chosen at the start.
    QString selectedNameFilter() const;

private:
    QList<QUrl> m_lstUrls;
    QList<QPair<QString, QString>> m_lstFilters;
    int m_iSelectedFilter;
};

#endif
