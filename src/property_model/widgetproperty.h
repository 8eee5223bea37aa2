#ifndef PROPERTYBROWSER_WIDGETPROPERTY_H
#define PROPERTYBROWSER_WIDGETPROPERTY_H

#include "qtproperty.h"

#include <QByteArray>
#include <QLocale>
#include <QObject>
#include <QString>
#include <QVariant>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

class QtAbstractPropertyManager;

namespace Script {
class DItem;
}

namespace PropertyBrowser {

/// One row of the property tree, bound to one node. A QObject so that a caller holding the row
/// can set dynamic properties on it ("HideSubProperty").
class WidgetProperty : public QObject, public QtProperty
{
    Q_OBJECT

public:
    /// Makes a row of @p manager, not yet bound to a node; only a manager's createProperty()
    /// calls it.
    explicit WidgetProperty(QtAbstractPropertyManager* manager);
    ~WidgetProperty() override;

    /// Binds the row to @p node and keeps a copy of its path.
    void setData(Script::DItem const& node);
    /// Tells every browser that shows the row to repaint it.
    void refresh();
    /// The locale of every number in the property tree: English (United States), whatever the
    /// system locale.
    QLocale locale() const;
    /// @p value for the value column in locale(): fixed with @p decimals and no group separator,
    /// or in exponent form with four decimals when the fixed form would be too wide.
    QString numberText(double value, int decimals) const;

    /// Reads @p value as the numeric type of a row: int, long (64-bit) or double.
    template<typename T>
    T variantToVal(QVariant const& value) const;

    /// First: the row shows a value bar (a numeric input or output). Second: the bar has a
    /// dynamic range.
    std::pair<bool, bool> numeric_DisplayBar() const;
    /// The X, Y and Z values of a point node; three zeros when any axis node is missing.
    std::vector<double> point_DynamicValue() const;
    /// The smallest and the largest value of a kernel cell.
    std::pair<int, int> filterMatrix_ValueLimits() const;
    /// The kernel's two sizes from a text such as "3x5"; 0 and 0 when the text is malformed.
    std::pair<int, int> filterMatrix_KernelSize() const;
    /// The bytes of a "DXFModel" or "ScriptViewer" node; empty for any other node.
    QByteArray binary_byteArray() const;

    /// The node shown by the row; not owned, null until setData().
    Script::DItem const* node = nullptr;
    /// The node's path as it was at setData().
    QString nodePath;

    /// Turns a module state number into its description; assigned by the host, never here.
    static std::function<std::string(int)> m_ErrorDescription;

    /// The row behind @p property, or null for a null property or one that is no row.
    static WidgetProperty* poRow(QtProperty* property);
    static WidgetProperty const* poRow(QtProperty const* property);
    /// The node of @p property's row; null without a row or before setData().
    static Script::DItem const* poNode(QtProperty const* property);
    /// The node whose address the host stored in @p address as a 64-bit integer; null for 0 or
    /// for a value that cannot be read as a number.
    static Script::DItem* poNodeAt(QVariant const& address);
    /// The X, Y and Z axis nodes of the point @p node; each null when the point names none.
    static std::array<Script::DItem const*, 3> poPointAxes(Script::DItem const& node);
};

template<>
int WidgetProperty::variantToVal<int>(QVariant const& value) const;
template<>
long WidgetProperty::variantToVal<long>(QVariant const& value) const;
template<>
double WidgetProperty::variantToVal<double>(QVariant const& value) const;

} // namespace PropertyBrowser

#endif
