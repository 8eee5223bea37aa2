#ifndef PROPERTYBROWSER_MANAGERS_IMAGEPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_IMAGEPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QImage>
#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataImage" nodes: shows the link state, with a chain that tells how many
/// channels of an image linked channel by channel are linked.
class ImagePropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit ImagePropertyManager(QObject* parent = nullptr);
    ~ImagePropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;

    /// The painter's text, nothing for a linked node, "Not Linked" for a linkable one, or
    /// nothing.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// For an image linked channel by channel, the chain of its number of linked channels;
    /// otherwise the chain of an input.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);
    /// Asks the host to show the channel at @p linkPath for the node at @p nodePath.
    bool selectLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Asks the host to set the local image to @p image.
    void setValue(QtProperty* property, QImage image);

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
