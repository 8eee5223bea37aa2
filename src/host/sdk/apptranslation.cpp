#include "sdk/apptranslation.h"

#include <QCoreApplication>

namespace App {

QString getTranslatedName(const QString& name)
{
    return getTranslation(name, QStringList(QStringLiteral("IData")));
}

QString getTranslation(const QString& key, const QStringList& contexts)
{
    // Catalogues hold names and short texts; a longer key, such as a whole text value, is in
    // none of them, and a look-up would convert and hash all of it.
    const int kMaxKeyLength = 1024;
    if (key.isEmpty() || key.size() > kMaxKeyLength)
        return key;
    const QByteArray source = key.toUtf8();
    for (const QString& context : contexts) {
        const QByteArray contextName = context.toUtf8();
        // Without a translation Qt hands back the source text, which tells "none" apart.
        const QString translated
            = QCoreApplication::translate(contextName.constData(), source.constData());
        if (translated != key)
            return translated;
    }
    return key;
}

} // namespace App
