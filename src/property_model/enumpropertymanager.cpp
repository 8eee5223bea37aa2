#include "property_model/enumpropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"

#include <QStringList>

namespace PropertyBrowser {
namespace Managers {

EnumPropertyManager::EnumPropertyManager(QObject* parent)
    : QtEnumPropertyManager(parent)
{ }

EnumPropertyManager::~EnumPropertyManager() = default;

QtProperty* EnumPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString EnumPropertyManager::value(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return QString();
    if (!node->isLinked())
        return node->property("IDataBasicEnum.DynamicStringnifiedValue").toString();
    return node->linkedPath().split(QLatin1Char('.'), Qt::KeepEmptyParts).last();
}

QString EnumPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Empty))
        return *text;
    const QString choice = WidgetProperty::poNode(property)
                               ->property("IDataBasicEnum.DynamicStringnifiedValue")
                               .toString();
    // The host hands the name on as a C string, which ends at the first NUL.
    return App::getTranslatedName(choice.left(choice.indexOf(QChar(0))));
}

QIcon EnumPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon EnumPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool EnumPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void EnumPropertyManager::setValue(QtProperty* property, QVariant value, QVariant matrix)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    // The choice goes first, so that the host knows the filter type the matrix belongs to.
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, value, false);
    if (matrix.isValid()) {
        emit vPropertyEdited(node->property("IDataModFilter.FilterMatrixPath").toString(),
                             VardeenDefs::PropertyEditor::SetValue, matrix, false);
    }
}

} // namespace Managers
} // namespace PropertyBrowser
