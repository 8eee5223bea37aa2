#include "navigator/ditemnavpainter.h"

#include "sdk/apptranslation.h"
#include "sdk/ditem.h"

DItemNavPainter::DItemNavPainter(const Script::DItem& node)
    : m_roNode(node)
{ }

QSharedPointer<QString> DItemNavPainter::getValueText() const
{
    if (m_roNode.ioType() == Script::DItem::IoOutput) {
        if (m_roNode.hasErrorState())
            return QSharedPointer<QString>::create(App::getTranslatedName(QStringLiteral("Error")));
        if (m_roNode.isInitialized())
            return QSharedPointer<QString>::create(
                App::getTranslatedName(QStringLiteral("Not Available")));
        return QSharedPointer<QString>();
    }
    if (!m_roNode.isLinkable())
        return QSharedPointer<QString>();
    if (!m_roNode.isLinked()) {
        if (m_roNode.iDataType().startsWith(QLatin1String("IDataBasic"), Qt::CaseSensitive))
            return QSharedPointer<QString>();
        return QSharedPointer<QString>::create(tr("Not Linked"));
    }
    // The last segment of the path is the linked node's own name; read in place, without
    // splitting the path or copying the segment, since this runs at every paint of a linked row.
    const QString path = m_roNode.linkedPath();
    const QStringRef name = path.midRef(path.lastIndexOf(QLatin1Char('.')) + 1);
    // The host keys its names by UTF-8 text, so a name is looked up as its UTF-8 reading.
    return QSharedPointer<QString>::create(
        App::getTranslatedName(QString::fromUtf8(name.toUtf8())));
}

QColor DItemNavPainter::getTextColor() const
{
    if (m_roNode.ioType() == Script::DItem::IoOutput) {
        if (m_roNode.hasErrorState())
            return QColor(Qt::red);
        if (m_roNode.isInitialized())
            return QColor(Qt::darkGray);
    } else if (m_roNode.isLinkable()) {
        // A linked input is judged by its link alone, even when it is out of range.
        if (!m_roNode.isLinked())
            return QColor(Qt::black);
        return QColor(m_roNode.hasLinkError() ? Qt::red : Qt::black);
    }
    return QColor(m_roNode.outOfRangeCounter() != 0 ? Qt::red : Qt::black);
}
