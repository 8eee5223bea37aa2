#ifndef PROPERTYBROWSER_MANAGERS_ENUMPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_ENUMPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the rows of "IDataBasicEnum" nodes: shows the choice as text and sends a new choice,
/// with the kernel matrix of a filter type when one comes with it.
class EnumPropertyManager : public QtEnumPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit EnumPropertyManager(QObject* parent = nullptr);
    ~EnumPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// The node's choice as text, or the name of the linked node when it is linked.
    QString value(QtProperty const* property) const;

    /// The painter's text, nothing for a linked node, or the choice, translated and cut at a
    /// first NUL.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Asks the host to link the node at @p nodePath to @p linkPath; an empty path unlinks.
    bool setLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Asks the host to set the choice to @p value and then, when @p matrix is valid, the
    /// node of "IDataModFilter.FilterMatrixPath" to @p matrix.
    void setValue(QtProperty* property, QVariant value, QVariant matrix = QVariant());

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
