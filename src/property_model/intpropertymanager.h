#ifndef PROPERTYBROWSER_MANAGERS_INTPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_INTPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBasicInt" nodes: shows the dynamic value, reports the local limits
/// and sends every edit to the host.
class IntPropertyManager : public QtIntPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit IntPropertyManager(QObject* parent = nullptr);
    ~IntPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// The node's state description for a state row, otherwise the value text.
    QString toolTipText(QtProperty const* property) const override;

    /// The node's dynamic value.
    int value(QtProperty const* property) const;
    /// The lower limit of the local value.
    int minimum(QtProperty const* property) const;
    /// The upper limit of the local value.
    int maximum(QtProperty const* property) const;
    /// The single step of the local value.
    int singleStep(QtProperty const* property) const;

    /// The painter's text, or the value as plain decimal digits.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);
    /// Asks the host to set the local limits, sent as they are.
    void setLimits(QtProperty* property, int minimum, int maximum);

public slots:
    /// Asks the host to set the local value to @p value, unchanged.
    void setValue(QtProperty* property, int value);

signals:
    /// An edit for the host.
    void vPropertyEdited(QString const& nodePath, VardeenDefs::PropertyEditor::Command cmd,
                         QVariant params, bool preview);
    /// The user followed a link to another node.
    void linkClicked(QString const& outputNodePath);
    /// An editor asks the host to bring a node up to date.
    void refreshData(QString const& nodePath);
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
