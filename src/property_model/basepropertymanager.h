#ifndef PROPERTYBROWSER_MANAGERS_BASEPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_BASEPROPERTYMANAGER_H

#include "property_model/resources.h"

#include <QIcon>
#include <QString>

#include <memory>

class QtProperty;

namespace Script {
class DItem;
}

namespace PropertyBrowser {

class WidgetProperty;

namespace Managers {

/// Second base of every manager of the property tree, beside its Qt manager class: the link
/// icons and the default answers. A manager keeps no values; it reads them from the node.
class BasePropertyManager
{
public:
    /// Builds the manager's link icons and, once per process, the shared icons.
    BasePropertyManager();
    virtual ~BasePropertyManager();

    /// The icon in the value column; none by default.
    virtual QIcon valueIcon(QtProperty const* property) const;
    /// The icon in the name column: a chain for an input, nothing for other nodes.
    virtual QIcon propertyIcon(QtProperty const* property) const;
    /// Makes a row of this manager, a WidgetProperty.
    virtual QtProperty* createProperty() = 0;
    /// The text in the value column; empty by default.
    virtual QString valueText(QtProperty const* property) const;
    /// The tool tip of the row; the value text by default.
    virtual QString toolTipText(QtProperty const* property) const;

protected:
    /// The tool tip of an integer row: the host's description of @p state for a row of a module
    /// state (its description names one, or its limits are equal), otherwise the base text.
    QString stateToolTipText(QtProperty const* property, int state, bool equalLimits) const;
    /// The row behind @p property, or null for a null property or one that is no row.
    static WidgetProperty const* poWidgetProperty(QtProperty const* property);
    /// The node of @p property, or null when there is no row or the row has no node yet.
    static Script::DItem const* poNode(QtProperty const* property);

    std::shared_ptr<Resources> resources;

    // Shared by all managers; filled by the first manager that is built.
    static QIcon emptyIcon;
    static QIcon checkBoxChecked;
    static QIcon checkBoxUnhecked;
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
