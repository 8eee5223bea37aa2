#ifndef PROPERTYBROWSER_MANAGERS_BINARYPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_BINARYPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBinary" nodes: shows only the link state; the bytes are viewed in
/// an editor.
class BinaryPropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit BinaryPropertyManager(QObject* parent = nullptr);
    ~BinaryPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;

    /// The painter's text, "Not Linked" for an input, or nothing.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString nodePath, QString linkPath);

public slots:
    /// Asks the host to set the local bytes to @p data.
    void setValue(QtProperty* property, QByteArray const& data);

signals:
    /// An edit for the host.
    void vPropertyEdited(QString nodePath, VardeenDefs::PropertyEditor::Command cmd,
                         QVariant params, bool preview);
    /// The user followed a link to another node.
    void linkClicked(QString outputNodePath);
    /// An editor asks the host to bring a node up to date.
    void refreshData(QString nodePath);
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
