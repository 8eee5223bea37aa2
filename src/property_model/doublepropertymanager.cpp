#include "property_model/doublepropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

DoublePropertyManager::DoublePropertyManager(QObject* parent)
    : QtDoublePropertyManager(parent)
{ }

DoublePropertyManager::~DoublePropertyManager() = default;

QtProperty* DoublePropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

double DoublePropertyManager::minimum(QtProperty const* property) const
{
    return nodeNumber<double>(property, "IDataNumeric.LocalMin");
}

double DoublePropertyManager::maximum(QtProperty const* property) const
{
    return nodeNumber<double>(property, "IDataNumeric.LocalMax");
}

double DoublePropertyManager::singleStep(QtProperty const* property) const
{
    return nodeNumber<double>(property, "IDataNumeric.LocalStep");
}

double DoublePropertyManager::value(QtProperty const* property) const
{
    return nodeNumber<double>(property, "IDataNumeric.DynamicValue");
}

int DoublePropertyManager::decimals(QtProperty const*) const
{
    return 4;
}

QString DoublePropertyManager::toolTipText(QtProperty const* property) const
{
    const WidgetProperty* row = WidgetProperty::poRow(property);
    if (!row)
        return QString();
    const double v = value(property);
    const QLocale locale = row->locale();
    QString text = locale.toString(v, 'f', decimals(property));
    if (qAbs(v) >= 1000.0)
        text.remove(locale.groupSeparator());
    return text;
}

QString DoublePropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Empty))
        return *text;
    return WidgetProperty::poRow(property)->numberText(value(property), decimals(property));
}

QIcon DoublePropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon DoublePropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool DoublePropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void DoublePropertyManager::setLimits(QtProperty* property, double minimum, double maximum)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    QMap<QString, QVariant> limits;
    limits.insert(QStringLiteral("Min"), minimum);
    limits.insert(QStringLiteral("Max"), maximum);
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetLimits, limits, false);
}

void DoublePropertyManager::setValue(QtProperty* property, double value)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    // The upper limit is tested first, so reversed limits give the maximum; NaN gets the
    // minimum because it compares false with both.
    const double minimumValue = minimum(property);
    const double maximumValue = maximum(property);
    double sent = minimumValue;
    if (value > maximumValue)
        sent = maximumValue;
    else if (value > minimumValue)
        sent = value;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, sent, false);
}

} // namespace Managers
} // namespace PropertyBrowser
