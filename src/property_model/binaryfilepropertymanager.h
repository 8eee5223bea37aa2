#ifndef PROPERTYBROWSER_MANAGERS_BINARYFILEPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_BINARYFILEPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBinaryFile" nodes: shows the name of the loaded file and passes on
/// the user's wish to load, save or unload it; the host does the file work.
class BinaryFilePropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit BinaryFilePropertyManager(QObject* parent = nullptr);
    ~BinaryFilePropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;

    /// The node's "FileName", or "Not Loaded"; the painter is not asked, so the name shows
    /// whatever the node's state.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString nodePath, QString linkPath);

public slots:
    /// Asks the host to load @p binaries as the file @p fileName with its @p extension and
    /// @p description.
    void setValue(QtProperty* property, QByteArray const& binaries, QString const& fileName,
                  QString const& extension, QString const& description);

signals:
    /// An edit for the host.
    void vPropertyEdited(QString nodePath, VardeenDefs::PropertyEditor::Command cmd,
                         QVariant params, bool preview);
    /// The user followed a link to another node.
    void linkClicked(QString outputNodePath);
    /// An editor asks the host to bring a node up to date.
    void refreshData(QString nodePath);
    /// The user asks to save the file of the node at the path given.
    void requestSaveToFile(QString nodePath);
    /// The user asks to load a file into the node at the path given.
    void requestLoadFromFile(QString nodePath);
    /// The user asks to unload the file of the node at the path given.
    void requestUnloadFile(QString nodePath);
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
