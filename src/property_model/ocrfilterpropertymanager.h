#ifndef PROPERTYBROWSER_MANAGERS_OCRFILTERPROPERTYMANAGER_H
#define PROPERTYBROWSER_MANAGERS_OCRFILTERPROPERTYMANAGER_H

#include "property_model/basepropertymanager.h"
#include "qtpropertymanager.h"
#include "sdk/command.h"

#include <QString>
#include <QVariant>

namespace PropertyBrowser {
namespace Managers {

/// Serves the OCR filter rows, string settings under "Fielding.Set.": shows the filter text as
/// it stands and sends a filter as its name and value. A filter row cannot be linked.
class OcrFilterPropertyManager : public QtStringPropertyManager, public BasePropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without rows.
    explicit OcrFilterPropertyManager(QObject* parent = nullptr);
    ~OcrFilterPropertyManager() override;

    /// Makes a row of this manager.
    QtProperty* createProperty() override;
    /// The node's dynamic string.
    virtual QString value(QtProperty const* property) const;

    /// The painter's text, or the value untouched: no symbols, no translation.
    QString valueText(QtProperty const* property) const override;
    /// No icon in the value column.
    QIcon valueIcon(QtProperty const* property) const override;
    /// The chain of an input, from the base manager.
    QIcon propertyIcon(QtProperty const* property) const override;

    /// Sends nothing and gives false: a filter row cannot be linked.
    bool setLink(QString const& nodePath, QString const& linkPath);

public slots:
    /// Sends nothing: a filter is set as a name and a value together.
    void setValue(QtProperty* property, QString& value);
    /// Asks the host to set the filter @p filterName to @p filterValue.
    void setValue(QtProperty* property, QString const& filterName, QString const& filterValue);

signals:
    /// An edit for the host.
    void vPropertyEdited(QString const& nodePath, VardeenDefs::PropertyEditor::Command cmd,
                         QVariant params, bool preview);
    /// The user followed a link to another node.
    void linkClicked(QString outputNodePath);
    /// An editor asks the host to bring a node up to date.
    void refreshData(QString nodePath);
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
