#include "property_model/widgetproperty.h"

#include "sdk/binaryitem.h"
#include "sdk/ditem.h"

#include <QStringList>
#include <QtMath>

namespace PropertyBrowser {

std::function<std::string(int)> WidgetProperty::m_ErrorDescription;

namespace {

// Beyond this the fixed form gets too wide for the value column.
constexpr double iFixedFormLimit = 99999999.0;

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

QString WidgetProperty::numberText(double value, int decimals) const
{
    const QLocale fixedLocale = locale();
    if (qAbs(value) > iFixedFormLimit)
        return fixedLocale.toString(value, 'e', 4);
    return fixedLocale.toString(value, 'f', decimals).remove(fixedLocale.groupSeparator());
}

WidgetProperty* WidgetProperty::poRow(QtProperty* property)
{
    return dynamic_cast<WidgetProperty*>(property);
}

WidgetProperty const* WidgetProperty::poRow(QtProperty const* property)
{
    return dynamic_cast<WidgetProperty const*>(property);
}

Script::DItem const* WidgetProperty::poNode(QtProperty const* property)
{
    const WidgetProperty* row = poRow(property);
    return row ? row->node : nullptr;
}

Script::DItem* WidgetProperty::poNodeAt(QVariant const& address)
{
    qlonglong value = 0;
    if (address.userType() == QMetaType::LongLong) {
        value = address.toLongLong();
    } else {
        QVariant converted = address;
        if (converted.convert(QMetaType::LongLong))
            value = converted.toLongLong();
    }
    // The host stores its nodes as their addresses; they outlive the rows that show them.
    return reinterpret_cast<Script::DItem*>(static_cast<quintptr>(value));
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

std::array<Script::DItem const*, 3> WidgetProperty::poPointAxes(Script::DItem const& node)
{
    return {poNodeAt(node.property("IDataGeoPoint.X")), poNodeAt(node.property("IDataGeoPoint.Y")),
            poNodeAt(node.property("IDataGeoPoint.Z"))};
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
    const std::array<Script::DItem const*, 3> axes = poPointAxes(*node);
    if (!axes[0] || !axes[1] || !axes[2])
        return values;
    for (int axis = 0; axis < 3; ++axis)
        values[axis] = axes[axis]->property("IDataNumeric.DynamicValue").toDouble();
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
