#ifndef PROPERTYBROWSER_MANAGERS_STRINGPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_STRINGPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBasicString" nodes: shows the string with its control characters
/// as symbols and sends edits with the real characters.
class StringPropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit StringPropertyManager(QObject* parent = nullptr);
    ~StringPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// The node's dynamic string, with its real control characters.
    virtual QString value(QtProperty const* property) const;

    /// The painter's text, nothing for a linked node, or the string in symbols, translated and
    /// cut at a first NUL.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Asks the host to set the local string to @p text, given in symbols.
    void setValue(QtProperty* property, QString const& text);

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
