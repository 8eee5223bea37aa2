#include "property_model/doublepropertymanager.h"

#include "navigator/ditemnavpainter.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include <QtMath>

namespace PropertyBrowser {
namespace Managers {

namespace {

// Beyond this the fixed form gets too wide for the value column.
constexpr double iFixedFormLimit = 99999999.0;

// A row whose node is gone or not yet bound reads as 0, like a node without the key.
double nodeValue(QtProperty const* property, const char* key)
{
    const WidgetProperty* row = dynamic_cast<WidgetProperty const*>(property);
    return row && row->node ? row->variantToVal<double>(row->node->property(key)) : 0.0;
}

} // namespace

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
    return nodeValue(property, "IDataNumeric.LocalMin");
}

double DoublePropertyManager::maximum(QtProperty const* property) const
{
    return nodeValue(property, "IDataNumeric.LocalMax");
}

double DoublePropertyManager::singleStep(QtProperty const* property) const
{
    return nodeValue(property, "IDataNumeric.LocalStep");
}

double DoublePropertyManager::value(QtProperty const* property) const
{
    return nodeValue(property, "IDataNumeric.DynamicValue");
}

int DoublePropertyManager::decimals(QtProperty const*) const
{
    return 4;
}

QString DoublePropertyManager::toolTipText(QtProperty const* property) const
{
    const WidgetProperty* row = poWidgetProperty(property);
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
    const WidgetProperty* row = poWidgetProperty(property);
    if (!row || !row->node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*row->node).getValueText();
    if (text)
        return *text;
    if (row->node->isLinked())
        return QString();
    const double v = value(property);
    const QLocale locale = row->locale();
    if (qAbs(v) > iFixedFormLimit)
        return locale.toString(v, 'e', 4);
    return locale.toString(v, 'f', decimals(property)).remove(locale.groupSeparator());
}

QIcon DoublePropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

bool DoublePropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath, false);
    return true;
}

void DoublePropertyManager::setLimits(QtProperty* property, double minimum, double maximum)
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return;
    QMap<QString, QVariant> limits;
    limits.insert(QStringLiteral("Min"), minimum);
    limits.insert(QStringLiteral("Max"), maximum);
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetLimits, limits, false);
}

void DoublePropertyManager::setValue(QtProperty* property, double value)
{
    const Script::DItem* node = poNode(property);
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
