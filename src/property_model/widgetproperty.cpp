#include "property_model/widgetproperty.h"

#include "sdk/binaryitem.h"
#include "sdk/ditem.h"

#include <QStringList>

namespace PropertyBrowser {

std::function<std::string(int)> WidgetProperty::m_ErrorDescription;

namespace {

// A node that names no axis node, or names one that cannot be read as a number, counts as 0.
qlonglong axisAddress(const Script::DItem& node, const char* key)
{
    QVariant value = node.property(key);
    if (value.userType() == QMetaType::LongLong)
        return value.toLongLong();
    return value.convert(QMetaType::LongLong) ? value.toLongLong() : 0;
}

} // namespace

WidgetProperty::WidgetProperty(QtAbstractPropertyManager* manager)
    : QObject(nullptr)
    , QtProperty(manager)
{ }

WidgetProperty::~WidgetProperty() = default;

void WidgetProperty::setData(Script::DItem const& item)
{
    node = &item;
    nodePath = item.iDataPath();
}

void WidgetProperty::refresh()
{
    propertyChanged();
}

QLocale WidgetProperty::locale() const
{
    // Built once: a QLocale made from a language allocates, and every number shown asks for it.
    static const QLocale fixedLocale(QLocale::English, QLocale::UnitedStates);
    return fixedLocale;
}

template<>
int WidgetProperty::variantToVal<int>(QVariant const& value) const
{
    return value.toInt();
}

template<>
long WidgetProperty::variantToVal<long>(QVariant const& value) const
{
    return static_cast<long>(value.toLongLong());
}

template<>
double WidgetProperty::variantToVal<double>(QVariant const& value) const
{
    return value.toDouble();
}

std::pair<bool, bool> WidgetProperty::numeric_DisplayBar() const
{
    if (!node)
        return {false, false};
    const Script::DItem::IoType kind = node->ioType();
    const bool shown = node->property("IData.IsNumeric").toBool()
        && (kind == Script::DItem::IoInput || kind == Script::DItem::IoOutput);
    return {shown, node->property("IData.NumericDynamic").toBool()};
}

std::vector<double> WidgetProperty::point_DynamicValue() const
{
    std::vector<double> values(3, 0.0);
    if (!node)
        return values;
    const qlonglong addresses[3]
        = {axisAddress(*node, "IDataGeoPoint.X"), axisAddress(*node, "IDataGeoPoint.Y"),
           axisAddress(*node, "IDataGeoPoint.Z")};
    for (qlonglong address : addresses) {
        if (address == 0)
            return values;
    }
    for (int axis = 0; axis < 3; ++axis) {
        // The host stores the axis nodes as their addresses; they live as long as the point.
        const auto* axisNode = reinterpret_cast<const Script::DItem*>(addresses[axis]);
        values[axis] = axisNode->property("IDataNumeric.DynamicValue").toDouble();
    }
    return values;
}

std::pair<int, int> WidgetProperty::filterMatrix_ValueLimits() const
{
    if (!node)
        return {0, 0};
    return {node->property("IDataModFilter.KernelValMin").toInt(),
            node->property("IDataModFilter.KernelValMax").toInt()};
}

std::pair<int, int> WidgetProperty::filterMatrix_KernelSize() const
{
    if (!node)
        return {0, 0};
    const QStringList parts = node->property("IDataModFilter.KernelSize")
                                  .toString()
                                  .toLower()
                                  .split(QLatin1Char('x'), Qt::KeepEmptyParts);
    if (parts.size() != 2)
        return {0, 0};
    return {parts.at(0).toInt(nullptr, 10), parts.at(1).toInt(nullptr, 10)};
}

QByteArray WidgetProperty::binary_byteArray() const
{
    if (!node)
        return QByteArray();
    const QString kind = node->property("IData.Type.ExtraInfo").toString();
    if (kind != QLatin1String("DXFModel") && kind != QLatin1String("ScriptViewer"))
        return QByteArray();
    // A host that marks another kind of node so gets no bytes rather than a bad cast.
    const auto* binary = qobject_cast<const Script::BinaryItem*>(node);
    return binary ? binary->binaryData() : QByteArray();
}

} // namespace PropertyBrowser
