#ifndef PROPERTYBROWSER_MANAGERS_BASEPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_BASEPROPERTYMANAGER_H

#include "property_model/resources.h"
#include "property_model/widgetproperty.h"
#include "sdk/command.h"
#include "sdk/ditem.h"

#include <QIcon>
#include <QString>

#include <memory>
#include <optional>

class QtProperty;

namespace PropertyBrowser {
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
    /// Reads @p key of the row's node as @p T (int, long or double); 0 when the row has no node,
    /// as for a node without the key.
    template<typename T>
    static T nodeNumber(QtProperty const* property, const char* key)
    {
        const WidgetProperty* row = WidgetProperty::poRow(property);
        return row && row->node ? row->variantToVal<T>(row->node->property(key)) : T();
    }

    /// What a linked node shows in the value column when the painter has no text for it.
    enum class LinkedText { Value, Empty };
    /// The value text that does not depend on the manager: empty for a row without a node, the
    /// painter's text if the node has one, and empty for a linked node when @p linked is Empty.
    /// Unset when the manager has to show the value itself, which implies that the row has a node.
    static std::optional<QString> nodeValueText(QtProperty const* property, LinkedText linked);

    /// Asks the host, through @p manager, to link the node at @p nodePath to @p linkPath; an
    /// empty path unlinks. Every manager that can link answers setLink() with this.
    template<typename Manager>
    static bool sendLink(Manager* manager, QString const& nodePath, QString const& linkPath)
    {
        emit manager->vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath,
                                      false);
        return true;
    }

    std::shared_ptr<Resources> resources;

    // Shared by all managers; filled by the first manager that is built.
    static QIcon emptyIcon;
    static QIcon checkBoxChecked;
    static QIcon checkBoxUnhecked;
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
