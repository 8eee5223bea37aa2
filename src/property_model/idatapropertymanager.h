#ifndef PROPERTYBROWSER_MANAGERS_IDATAPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_IDATAPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the generic row of a node whose type the browser does not know: it shows only what
/// the painter says of the node, such as its link.
class IDataPropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit IDataPropertyManager(QObject* parent = nullptr);
    ~IDataPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// Always empty: the row has no value of its own.
    QString value(QtProperty const* property) const;

    /// The painter's text, or nothing.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Sends nothing: a node of unknown type has no value that could be set here.
    void setValue(QtProperty* property, QString& value);

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
