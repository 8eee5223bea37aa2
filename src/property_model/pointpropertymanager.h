#ifndef PROPERTYBROWSER_MANAGERS_POINTPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_POINTPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataGeoPoint" nodes: shows the three axis values; a point changes
/// through the rows of its axes.
class PointPropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit PointPropertyManager(QObject* parent = nullptr);
    ~PointPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;

    /// The painter's text, nothing for a linked node, or "[x, y, z]" with two decimals (in
    /// exponent form beyond 99999999).
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Sends nothing: a point is set through the rows of its three axes.
    void setValue(QtProperty* property, QString const& value);

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
