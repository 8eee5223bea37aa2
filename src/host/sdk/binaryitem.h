#ifndef SDK_BINARYITEM_H
#define SDK_BINARYITEM_H

#include "sdk/ditem.h"

#include <QByteArray>

namespace Script {

/// A node whose value is a block of bytes, such as a loaded file or a model.
class SDK_EXPORT BinaryItem : public DItem
{
    Q_OBJECT

public:
    /// Makes an empty binary node without path.
    explicit BinaryItem(QObject* parent = nullptr);
    /// Makes a binary node at @p path of type @p type ("IDataBinary" or "IDataBinaryFile").
    BinaryItem(const QString& path, const QString& type = QStringLiteral("IDataBinary"),
               IoType ioType = IoNone, QObject* parent = nullptr);
    ~BinaryItem() override;

    /// The node's bytes.
    QByteArray const& binaryData() const;
    /// Replaces the node's bytes.
    void setBinaryData(const QByteArray& data);

private:
    QByteArray m_oBinaryData;
};

} // namespace Script

#endif
