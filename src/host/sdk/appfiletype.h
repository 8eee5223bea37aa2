#ifndef SDK_APPFILETYPE_H
#define SDK_APPFILETYPE_H

#include <QMetaType>

/// Kind of file the application has open. The two guided kinds come with a welcome page and a
/// module assistant; the numbers are part of the interface between host and plug-in.
enum AppSpecifficFileType {
    FileTypeNone = 0, ///< No file open.
    FileTypeJob = 1, ///< A job opened from disk.
    FileTypeModuleLibrary = 2, ///< A library of modules.
    FileTypeImageSet = 3, ///< A set of images.
    FileTypeScript = 4, ///< A script.
    FileTypeGuidedJob = 5, ///< A new job made from a guided template.
    FileTypeGuidedTemplate = 6 ///< A guided template itself.
};

Q_DECLARE_METATYPE(AppSpecifficFileType)

#endif
