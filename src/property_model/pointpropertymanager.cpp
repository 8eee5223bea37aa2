#include "property_model/pointpropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include <vector>

namespace PropertyBrowser {
namespace Managers {

PointPropertyManager::PointPropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

PointPropertyManager::~PointPropertyManager() = default;

QtProperty* PointPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString PointPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Empty))
        return *text;
    const WidgetProperty* row = WidgetProperty::poRow(property);
    const std::vector<double> values = row->point_DynamicValue();
    // Two decimals where a double row has four: three values share the cell.
    return QStringLiteral("[%1, %2, %3]")
        .arg(row->numberText(values[0], 2))
        .arg(row->numberText(values[1], 2))
        .arg(row->numberText(values[2], 2));
}

QIcon PointPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon PointPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool PointPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void PointPropertyManager::setValue(QtProperty*, QString const&) { }

} // namespace Managers
} // namespace PropertyBrowser
