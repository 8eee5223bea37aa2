#include "sdk/apputils.h"

#include <QIcon>

namespace App {

QVariant Utils(UtilsId id, const QVariant& first, const QVariant& second, const QVariant& third)
{
    Q_UNUSED(second)
    Q_UNUSED(third)
    switch (id) {
    case UtilsIconFromPath: {
        const QString path = first.toString();
        return path.isEmpty() ? QVariant() : QVariant::fromValue(QIcon(path));
    }
    case UtilsCheckBoxIcon: {
        // Icons are cheap to copy and these two are asked for often: make each once.
        static const QIcon checked(QStringLiteral(":/images/checkbox_checked.svg"));
        static const QIcon unchecked(QStringLiteral(":/images/checkbox_unchecked.svg"));
        return QVariant::fromValue(first.toBool() ? checked : unchecked);
    }
    }
    return QVariant();
}

} // namespace App
