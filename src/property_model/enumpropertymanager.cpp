#include "property_model/enumpropertymanager.h"

#include "navigator/ditemnavpainter.h"
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
    const Script::DItem* node = poNode(property);
    if (!node)
        return QString();
    if (!node->isLinked())
        return node->property("IDataBasicEnum.DynamicStringnifiedValue").toString();
    return node->linkedPath().split(QLatin1Char('.'), Qt::KeepEmptyParts).last();
}

QString EnumPropertyManager::valueText(QtProperty const* property) const
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*node).getValueText();
    if (text)
        return *text;
    if (node->isLinked())
        return QString();
    const QString choice = node->property("IDataBasicEnum.DynamicStringnifiedValue").toString();
    // The host hands the name on as a C string, which ends at the first NUL.
    return App::getTranslatedName(choice.left(choice.indexOf(QChar(0))));
}

QIcon EnumPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

bool EnumPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath, false);
    return true;
}

void EnumPropertyManager::setValue(QtProperty* property, QVariant value, QVariant matrix)
{
    const Script::DItem* node = poNode(property);
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
