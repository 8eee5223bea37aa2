#ifndef SDK_APPTRANSLATION_H
#define SDK_APPTRANSLATION_H

#include "sdk/sdkglobal.h"

#include <QString>
#include <QStringList>

namespace App {

/// The display text of a job's name @p name: its translation in the context "IData" through
/// the installed translators, or @p name itself when none translates it.
SDK_EXPORT QString getTranslatedName(const QString& name);

/// The translation of @p key in the first of @p contexts, tried in order, that translates it;
/// @p key itself when none does.
SDK_EXPORT QString getTranslation(const QString& key, const QStringList& contexts);

} // namespace App

#endif
