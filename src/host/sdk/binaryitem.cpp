#include "sdk/binaryitem.h"

namespace Script {

BinaryItem::BinaryItem(QObject* parent)
    : DItem(parent)
{ }

BinaryItem::BinaryItem(const QString& path, const QString& type, IoType ioType, QObject* parent)
    : DItem(path, type, ioType, parent)
{ }

BinaryItem::~BinaryItem() = default;

QByteArray const& BinaryItem::binaryData() const
{
    return m_oBinaryData;
}

void BinaryItem::setBinaryData(const QByteArray& data)
{
    m_oBinaryData = data;
}

} // namespace Script
