#ifndef PROPERTYBROWSER_MANAGERS_DOUBLEPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_DOUBLEPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBasicDouble" nodes: shows the dynamic value with four decimals,
/// reports the local limits and sends every edit to the host, the value clamped first.
class DoublePropertyManager : public QtDoublePropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit DoublePropertyManager(QObject* parent = nullptr);
    ~DoublePropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// The lower limit of the local value.
    virtual double minimum(QtProperty const* property) const;
    /// The upper limit of the local value.
    virtual double maximum(QtProperty const* property) const;
    /// The single step of the local value.
    virtual double singleStep(QtProperty const* property) const;
    /// The node's dynamic value.
    virtual double value(QtProperty const* property) const;
    /// Always 4, for every row.
    virtual int decimals(QtProperty const* property) const;
    /// The plain number with four decimals, whatever the node's state.
    QString toolTipText(QtProperty const* property) const override;

    /// The painter's text, nothing for a linked node, or the value with four decimals (in
    /// exponent form beyond 99999999).
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);
    /// Asks the host to set the local limits, sent as they are.
    void setLimits(QtProperty* property, double minimum, double maximum);

public slots:
    /// Asks the host to set the local value to @p value, clamped into the local limits.
    void setValue(QtProperty* property, double value);

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
