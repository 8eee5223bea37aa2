#include "property_model/basepropertymanager.h"

#include "navigator/ditemnavpainter.h"
#include "sdk/apptranslation.h"
#include "sdk/apputils.h"

#include <QStringList>
#include <QVariant>

#include <string>

namespace PropertyBrowser {
namespace Managers {

QIcon BasePropertyManager::emptyIcon;
QIcon BasePropertyManager::checkBoxChecked;
QIcon BasePropertyManager::checkBoxUnhecked;

namespace {

// The host may answer with something other than an icon; that must not break a row.
QIcon checkBoxIcon(bool checked)
{
    const QVariant icon = App::Utils(App::UtilsCheckBoxIcon, QVariant(checked));
    return icon.canConvert<QIcon>() ? icon.value<QIcon>() : QIcon();
}

} // namespace

BasePropertyManager::BasePropertyManager()
    : resources(std::make_shared<Resources>())
{
    static bool iconsInitialized = false;
    if (!iconsInitialized) {
        emptyIcon = QIcon();
        checkBoxChecked = checkBoxIcon(true);
        checkBoxUnhecked = checkBoxIcon(false);
        iconsInitialized = true;
    }
}

BasePropertyManager::~BasePropertyManager() = default;

QIcon BasePropertyManager::valueIcon(QtProperty const*) const
{
    return QIcon();
}

QIcon BasePropertyManager::propertyIcon(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (node && node->ioType() == Script::DItem::IoInput)
        return node->isLinked() ? resources->linked : resources->notLinked;
    return emptyIcon;
}

QString BasePropertyManager::valueText(QtProperty const*) const
{
    return QString();
}

QString BasePropertyManager::toolTipText(QtProperty const* property) const
{
    return valueText(property);
}

std::optional<QString> BasePropertyManager::nodeValueText(QtProperty const* property,
                                                          LinkedText linked)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*node).getValueText();
    if (text)
        return *text;
    if (linked == LinkedText::Empty && node->isLinked())
        return QString();
    return std::nullopt;
}

QString BasePropertyManager::stateToolTipText(QtProperty const* property, int state,
                                              bool equalLimits) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return QString();
    const bool stateRow = equalLimits
        || node->property("IData.Description")
               .toString()
               .contains(QLatin1String("Module State"), Qt::CaseSensitive);
    if (!stateRow)
        return BasePropertyManager::toolTipText(property);
    // The host's text may carry a NUL; the description ends there.
    const std::string description = WidgetProperty::m_ErrorDescription(state);
    return App::getTranslation(QString::fromUtf8(description.c_str()),
                               QStringList(QStringLiteral("IData")));
}

} // namespace Managers
} // namespace PropertyBrowser
