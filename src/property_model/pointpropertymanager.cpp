#include "property_model/pointpropertymanager.h"

#include "navigator/ditemnavpainter.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include <QtMath>

#include <vector>

namespace PropertyBrowser {
namespace Managers {

namespace {

// Beyond this the fixed form gets too wide for the value column, as for a double row.
constexpr double iFixedFormLimit = 99999999.0;

QString axisText(const QLocale& locale, double value)
{
    if (qAbs(value) <= iFixedFormLimit)
        return locale.toString(value, 'f', 2).remove(locale.groupSeparator());
    return locale.toString(value, 'e', 4);
}

} // namespace

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
    const WidgetProperty* row = poWidgetProperty(property);
    if (!row || !row->node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*row->node).getValueText();
    if (text)
        return *text;
    if (row->node->isLinked())
        return QString();
    const std::vector<double> values = row->point_DynamicValue();
    const QLocale locale = row->locale();
    return QStringLiteral("[%1, %2, %3]")
        .arg(axisText(locale, values[0]))
        .arg(axisText(locale, values[1]))
        .arg(axisText(locale, values[2]));
}

QIcon PointPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

bool PointPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath, false);
    return true;
}

void PointPropertyManager::setValue(QtProperty*, QString const&) { }

} // namespace Managers
} // namespace PropertyBrowser
