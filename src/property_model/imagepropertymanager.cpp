#include "property_model/imagepropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

namespace PropertyBrowser {
namespace Managers {

ImagePropertyManager::ImagePropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

ImagePropertyManager::~ImagePropertyManager() = default;

QtProperty* ImagePropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString ImagePropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Empty))
        return *text;
    if (WidgetProperty::poNode(property)->isLinkable())
        return App::getTranslatedName(tr("Not Linked"));
    return QString();
}

QIcon ImagePropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon ImagePropertyManager::propertyIcon(QtProperty const* property) const
{
    using Script::GraphicItems::WImage::Image;
    const auto* image = qobject_cast<const Image*>(WidgetProperty::poNode(property));
    if (image && image->linkMode() == Image::LinkPerChannel) {
        switch (image->linkedChannelCount()) {
        case 0:
        case 1:
            return resources->notLinked;
        case 2:
            return resources->partlyLinked;
        case 3:
            return resources->linked;
        default:
            break;
        }
    }
    return BasePropertyManager::propertyIcon(property);
}

bool ImagePropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

bool ImagePropertyManager::selectLink(QString const& nodePath, QString const& linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SelectLink, linkPath, false);
    return true;
}

void ImagePropertyManager::setValue(QtProperty* property, QImage image)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, QVariant(image),
                         false);
}

} // namespace Managers
} // namespace PropertyBrowser
