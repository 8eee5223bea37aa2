#ifndef PROPERTYBROWSER_WTREEPROPERTYBROWSER_H
#define PROPERTYBROWSER_WTREEPROPERTYBROWSER_H

#include "qttreepropertybrowser.h"
#include "sdk/command.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

class QEvent;
class QResizeEvent;

namespace Script {
class DItem;
}

namespace PropertyBrowser {

class WidgetProperty;

namespace Managers {
class IntPropertyManager;
class Int64PropertyManager;
class DoublePropertyManager;
class BoolPropertyManager;
class EnumPropertyManager;
class StringPropertyManager;
class ImagePropertyManager;
class IDataPropertyManager;
class PointPropertyManager;
class BinaryPropertyManager;
class BinaryFilePropertyManager;
class OcrFilterPropertyManager;
} // namespace Managers

namespace EditorFactories {
class IntEditorFactory;
class Int64EditorFactory;
class DoubleEditorFactory;
class BoolEditorFactory;
class EnumEditorFactory;
class StringEditorFactory;
class ImageEditorFactory;
class IDataEditorFactory;
class PointEditorFactory;
class BinaryEditorFactory;
class BinaryFileEditorFactory;
class OcrFilterEditorFactory;
} // namespace EditorFactories

namespace Editors {
class BaseEditor;
}

/// The property tree of the dock: one row for each value of the selected node, with one manager
/// and one editor factory for each value type. The host builds and refreshes the rows through
/// the public operations; every edit leaves as a signal. There is one instance at a time.
class WTreePropertyBrowser : public QtTreePropertyBrowser
{
    Q_OBJECT

public:
    /// Makes the tree with its managers and factories and restores the saved splitter position.
    explicit WTreePropertyBrowser(QWidget* parent);
    /// Deletes the managers, then the factories.
    ~WTreePropertyBrowser() override;

    /// Builds the row of @p node and its sub-rows; a top-level row is added to the tree. Null
    /// when the manager made no row.
    WidgetProperty* createPropertyItem(Script::DItem const& node, bool topLevel);
    /// Adds the rows of the children of @p node that have no row yet, below @p parent.
    void createChildrenNodes(Script::DItem const& node, WidgetProperty* parent);
    /// Refreshes the row of @p node, its late children and the open editor; the repaint follows
    /// from the event loop.
    void updatePropertyItem(Script::DItem const& node);
    /// The row of the node at @p path, or null.
    WidgetProperty* getWProperty(QString const& path);
    /// The row of @p node, or null for a null node or one without a row.
    WidgetProperty* getWProperty(Script::DItem const* node);
    /// Whether the node at @p path has a row.
    bool propertyExists(QString const& path);
    /// The first item that shows @p row, or null.
    QtBrowserItem* getBrowserItem(WidgetProperty& row);
    /// The path of the node behind @p property; empty for anything that is not a row.
    QString getPropertyPath(QtProperty const* property);
    /// The paths of the top-level rows, in their order.
    QStringList getPropertyPaths();
    /// Puts the top-level rows in the order of @p paths, keeping each row's expansion.
    void setPropertyOrder(QStringList const& paths);
    /// Shows and hides every row by its node's visibility and the view mode.
    void refreshItemVisiblity();
    /// Shows, selects and focuses the row of the node at @p path.
    void highlightProperty(QString const& path);
    /// Removes the row of the node at @p path from the tree and deletes it.
    void deleteProperty(QString const& path);
    /// Saves the splitter and removes every row from the tree; the rows stay with their managers.
    void clear() override;
    /// Names every row by the translated last segment of its path.
    void retranslateWidget();
    /// Reads the node of the open editor again.
    void refreshCurrentEditor();
    /// Stores @p mode, enables the open editor by it, and sets the cursor.
    void onProjectModeChanged(int mode);
    /// Stores the splitter position in the settings when it moved.
    void saveSplitterPosition();
    /// Opens the editor of @p property with its value dialog on the link page, preselecting
    /// @p path.
    void showLinkingwidget(QtProperty* property, QWidget* parent, QString path);
    /// Creates the editor of @p property, or shows why the row cannot be edited.
    QWidget* createEditor(QtProperty* property, QWidget* parent) override;
    /// Tells the user once that a camera row cannot be changed offline.
    void showNonEditablePropInfoMsg(QtProperty* property, QWidget* parent);

    /// False only when the project mode forbids all editing.
    static bool isEditorCreationAllowed();
    /// An editor opened: it becomes the current one and editing starts.
    static void notifyPropEditorCreated(Editors::BaseEditor* editor);
    /// The current editor closed: editing stops.
    static void notifyPropEditorDestroyed(Editors::BaseEditor* editor);

    /// The instance, or null.
    static WTreePropertyBrowser* me;
    /// The open editor, or null.
    static Editors::BaseEditor* propertyEditWidget;
    /// Node path to row, for every row and sub-row; the rows are not owned here.
    static QMap<QString, WidgetProperty*> wPropertyMapping;

signals:
    /// An edit for the host.
    void propertyEdited(QString const& nodePath, VardeenDefs::PropertyEditor::Command cmd,
                        QVariant params, bool preview);
    /// The user followed a link to the node at @p outputNodePath.
    void linkClicked(QString const& outputNodePath);
    /// An editor asks the host to bring the node at @p nodePath up to date.
    void refreshData(QString const& nodePath);
    /// The user asks to save the file of a binary file node.
    void requestSaveToFile(QString nodePath);
    /// The user asks to load a file into a binary file node.
    void requestLoadFromFile(QString nodePath);
    /// The user asks to unload the file of a binary file node.
    void requestUnloadFile(QString nodePath);
    /// An editor opened (true) or closed (false).
    void editing(bool editing);

protected:
    /// Scales the splitter with the width once the accumulated change is large enough.
    void resizeEvent(QResizeEvent* event) override;
    /// Renames the rows on a language change.
    void changeEvent(QEvent* event) override;

private:
    template<class Manager>
    void forwardEdits(Manager* manager);

    Managers::IntPropertyManager* intManager;
    Managers::Int64PropertyManager* int64Manager;
    Managers::DoublePropertyManager* doubleManager;
    Managers::BoolPropertyManager* boolManager;
    Managers::EnumPropertyManager* enumManager;
    Managers::StringPropertyManager* stringManager;
    Managers::ImagePropertyManager* imageManager;
    Managers::IDataPropertyManager* iDataManager;
    Managers::PointPropertyManager* pointManager;
    Managers::BinaryPropertyManager* binaryManager;
    Managers::BinaryFilePropertyManager* binaryFileManager;
    Managers::OcrFilterPropertyManager* ocrFilterManager;
    EditorFactories::IntEditorFactory* intFactory;
    EditorFactories::Int64EditorFactory* int64Factory;
    EditorFactories::DoubleEditorFactory* doubleFactory;
    EditorFactories::BoolEditorFactory* boolFactory;
    EditorFactories::EnumEditorFactory* enumFactory;
    EditorFactories::StringEditorFactory* stringFactory;
    EditorFactories::ImageEditorFactory* imageFactory;
    EditorFactories::IDataEditorFactory* iDataFactory;
    EditorFactories::PointEditorFactory* pointFactory;
    EditorFactories::BinaryEditorFactory* binaryFactory;
    EditorFactories::BinaryFileEditorFactory* binaryFileFactory;
    EditorFactories::OcrFilterEditorFactory* ocrFilterFactory;
    int projectMode;
    int splitterPos;
    bool openLinkWidget;
    QString linkPath;
};

} // namespace PropertyBrowser

#endif
