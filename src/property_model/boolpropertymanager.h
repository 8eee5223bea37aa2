#ifndef PROPERTYBROWSER_MANAGERS_BOOLPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_BOOLPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBasicBool" nodes: the truth value as a check mark, the node's reply
/// text beside it.
class BoolPropertyManager : public QtBoolPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit BoolPropertyManager(QObject* parent = nullptr);
    ~BoolPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// The node's dynamic truth value.
    bool value(QtProperty const* property) const;

    /// The painter's text, nothing for a linked node, or the node's reply text, translated.
    QString valueText(QtProperty const* property) const override;
    /// The check mark of the value; none for a linked node or an output that is in error or
    /// not available.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Asks the host to set the local value to @p value.
    void setValue(QtProperty* property, bool value);

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
