#ifndef NODETYPES_H
#define NODETYPES_H

#include <QString>

/// The type names of the host's nodes that the workbench treats on its own.
namespace NodeTypes {

const QString kInt = QStringLiteral("IDataBasicInt");
const QString kInt64 = QStringLiteral("IDataBasicInt64");
const QString kDouble = QStringLiteral("IDataBasicDouble");
const QString kBool = QStringLiteral("IDataBasicBool");
const QString kEnum = QStringLiteral("IDataBasicEnum");
const QString kString = QStringLiteral("IDataBasicString");
const QString kImage = QStringLiteral("IDataImage");
const QString kBinary = QStringLiteral("IDataBinary");
const QString kBinaryFile = QStringLiteral("IDataBinaryFile");
const QString kPoint = QStringLiteral("IDataGeoPoint");

/// Whether @p type holds a number with limits and a bar.
inline bool isNumeric(const QString& type)
{
    return type == kInt || type == kInt64 || type == kDouble;
}

/// Whether a node of @p type can be linked to, and so take the value of, a node of
/// @p sourceType: the same type, or any two numbers.
inline bool canTakeValueOf(const QString& type, const QString& sourceType)
{
    return type == sourceType || (isNumeric(type) && isNumeric(sourceType));
}

} // namespace NodeTypes

#endif
