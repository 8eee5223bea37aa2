#include "property_model/wtreepropertybrowser.h"

#include "editors/baseeditor.h"
#include "property_model/binaryeditorfactory.h"
#include "property_model/binaryfileeditorfactory.h"
#include "property_model/binaryfilepropertymanager.h"
#include "property_model/binarypropertymanager.h"
#include "property_model/booleditorfactory.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/doubleeditorfactory.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/enumeditorfactory.h"
#include "property_model/enumpropertymanager.h"
#include "property_model/idataeditorfactory.h"
#include "property_model/idatapropertymanager.h"
#include "property_model/imageeditorfactory.h"
#include "property_model/imagepropertymanager.h"
#include "property_model/int64editorfactory.h"
#include "property_model/int64propertymanager.h"
#include "property_model/inteditorfactory.h"
#include "property_model/intpropertymanager.h"
#include "property_model/ocrfiltereditorfactory.h"
#include "property_model/ocrfilterpropertymanager.h"
#include "property_model/pointeditorfactory.h"
#include "property_model/pointpropertymanager.h"
#include "property_model/stringeditorfactory.h"
#include "property_model/stringpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/widgetpropertycustomrenderer.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"
#include "sdk/visibilityinfo.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"
#include "sdk/wmessagebox.h"

#include <QEvent>
#include <QResizeEvent>
#include <QTimer>

namespace PropertyBrowser {

WTreePropertyBrowser* WTreePropertyBrowser::me = nullptr;
Editors::BaseEditor* WTreePropertyBrowser::propertyEditWidget = nullptr;
QMap<QString, WidgetProperty*> WTreePropertyBrowser::wPropertyMapping;

namespace {

const QString kPropertyEditor = QStringLiteral("PROPERTY_EDITOR");
const QString kSplitterPos = QStringLiteral("SplitterPos");

// Project mode bits: editing is forbidden only when both of kNoEditing are set; kOffline keeps
// the offline message away; kArrowCursor marks a mode in which the tree takes clicks.
const int kNoEditing = 0x1001;
const int kOffline = 0x1000;
const int kArrowCursor = 0x10;

// The path last seen by the offline message, and whether the message is due.
QString storedPropertyID;
bool showOfflineMessage = false;

} // namespace

WTreePropertyBrowser::WTreePropertyBrowser(QWidget* parent)
    : QtTreePropertyBrowser(parent)
    , intManager(new Managers::IntPropertyManager)
    , int64Manager(new Managers::Int64PropertyManager)
    , doubleManager(new Managers::DoublePropertyManager)
    , boolManager(new Managers::BoolPropertyManager)
    , enumManager(new Managers::EnumPropertyManager)
    , stringManager(new Managers::StringPropertyManager)
    , imageManager(new Managers::ImagePropertyManager)
    , iDataManager(new Managers::IDataPropertyManager)
    , pointManager(new Managers::PointPropertyManager)
    , binaryManager(new Managers::BinaryPropertyManager)
    , binaryFileManager(new Managers::BinaryFilePropertyManager)
    , ocrFilterManager(new Managers::OcrFilterPropertyManager)
    , intFactory(new EditorFactories::IntEditorFactory)
    , int64Factory(new EditorFactories::Int64EditorFactory)
    , doubleFactory(new EditorFactories::DoubleEditorFactory)
    , boolFactory(new EditorFactories::BoolEditorFactory)
    , enumFactory(new EditorFactories::EnumEditorFactory)
    , stringFactory(new EditorFactories::StringEditorFactory)
    , imageFactory(new EditorFactories::ImageEditorFactory)
    , iDataFactory(new EditorFactories::IDataEditorFactory)
    , pointFactory(new EditorFactories::PointEditorFactory)
    , binaryFactory(new EditorFactories::BinaryEditorFactory)
    , binaryFileFactory(new EditorFactories::BinaryFileEditorFactory)
    , ocrFilterFactory(new EditorFactories::OcrFilterEditorFactory)
    , projectMode(0)
    , splitterPos(0)
    , openLinkWidget(false)
{
    setObjectName(QStringLiteral("NavPropertyBrowser"));
    setRootIsDecorated(true);
    setIndentation(12);
    setItemMinimumHeight(26);
    setIconSize(QSize(20, 20));
    setCustomRenderer(new WidgetPropertyCustomRenderer(this));
    setMinimumSize(180, 180);

    // Without the host's group the name column follows its contents and nothing is saved.
    const Settings::WAppSetting* group
        = Settings::WAppSettings::instance()->find_setting(kPropertyEditor);
    if (!group) {
        setResizeMode(ResizeToContents);
    } else {
        splitterPos = group->valueOf(kSplitterPos, QVariant()).toInt();
        setResizeMode(Interactive);
        setSplitterPosition(splitterPos);
    }

    setFactoryForManager<QtIntPropertyManager>(intManager, intFactory);
    setFactoryForManager(int64Manager, int64Factory);
    setFactoryForManager<QtDoublePropertyManager>(doubleManager, doubleFactory);
    setFactoryForManager<QtBoolPropertyManager>(boolManager, boolFactory);
    setFactoryForManager<QtStringPropertyManager>(stringManager, stringFactory);
    setFactoryForManager<QtStringPropertyManager>(imageManager, imageFactory);
    setFactoryForManager<QtEnumPropertyManager>(enumManager, enumFactory);
    setFactoryForManager<QtStringPropertyManager>(iDataManager, iDataFactory);
    setFactoryForManager<QtStringPropertyManager>(pointManager, pointFactory);
    setFactoryForManager<QtStringPropertyManager>(ocrFilterManager, ocrFilterFactory);
    setFactoryForManager<QtStringPropertyManager>(binaryManager, binaryFactory);
    setFactoryForManager<QtStringPropertyManager>(binaryFileManager, binaryFileFactory);

    me = this;

    forwardEdits(intManager);
    forwardEdits(int64Manager);
    forwardEdits(doubleManager);
    forwardEdits(boolManager);
    forwardEdits(stringManager);
    forwardEdits(imageManager);
    forwardEdits(enumManager);
    forwardEdits(iDataManager);
    forwardEdits(binaryManager);
    forwardEdits(binaryFileManager);
    connect(binaryFileManager, &Managers::BinaryFilePropertyManager::requestSaveToFile, this,
            &WTreePropertyBrowser::requestSaveToFile, Qt::DirectConnection);
    connect(binaryFileManager, &Managers::BinaryFilePropertyManager::requestLoadFromFile, this,
            &WTreePropertyBrowser::requestLoadFromFile, Qt::DirectConnection);
    connect(binaryFileManager, &Managers::BinaryFilePropertyManager::requestUnloadFile, this,
            &WTreePropertyBrowser::requestUnloadFile, Qt::DirectConnection);
    forwardEdits(pointManager);
    forwardEdits(ocrFilterManager);
}

WTreePropertyBrowser::~WTreePropertyBrowser()
{
    // The rows leave the view in one go; removed one by one as their managers delete them,
    // each would make the view walk all the others.
    QtAbstractPropertyBrowser::clear();
    // The managers take their rows with them, so the map must not outlive them.
    wPropertyMapping.clear();
    if (me == this)
        me = nullptr;
    delete intManager;
    delete int64Manager;
    delete doubleManager;
    delete boolManager;
    delete enumManager;
    delete stringManager;
    delete imageManager;
    delete iDataManager;
    delete pointManager;
    delete binaryManager;
    delete binaryFileManager;
    delete ocrFilterManager;
    delete intFactory;
    delete int64Factory;
    delete doubleFactory;
    delete boolFactory;
    delete enumFactory;
    delete stringFactory;
    delete imageFactory;
    delete iDataFactory;
    delete pointFactory;
    delete binaryFactory;
    delete binaryFileFactory;
    delete ocrFilterFactory;
}

template<class Manager>
void WTreePropertyBrowser::forwardEdits(Manager* manager)
{
    // Direct, so that an edit reaches the host before the editor that made it goes on.
    connect(manager, &Manager::vPropertyEdited, this, &WTreePropertyBrowser::propertyEdited,
            Qt::DirectConnection);
    connect(manager, &Manager::linkClicked, this, &WTreePropertyBrowser::linkClicked,
            Qt::DirectConnection);
    connect(manager, &Manager::refreshData, this, &WTreePropertyBrowser::refreshData,
            Qt::DirectConnection);
}

WidgetProperty* WTreePropertyBrowser::createPropertyItem(Script::DItem const& node, bool topLevel)
{
    const QString name = node.property("IData.Description").toString();
    const QString type = node.property("IData.Type").toString();
    const QString path = node.iDataPath();

    // The managers make only WidgetProperty rows.
    QtAbstractPropertyManager* manager = nullptr;
    bool children = true;
    if (type == QLatin1String("IDataBasicInt")) {
        manager = intManager;
    } else if (type == QLatin1String("IDataBasicInt64")) {
        manager = int64Manager;
    } else if (type == QLatin1String("IDataImage")) {
        manager = imageManager;
        children = false;
    } else if (type == QLatin1String("IDataBasicDouble")) {
        manager = doubleManager;
    } else if (type == QLatin1String("IDataBasicBool")) {
        manager = boolManager;
    } else if (type == QLatin1String("IDataBasicEnum")) {
        manager = enumManager;
    } else if (type == QLatin1String("IDataBasicString")) {
        const bool ocrFilter = path.contains(QLatin1String("Fielding.Set."))
            && node.ioType() == Script::DItem::IoNone;
        manager
            = ocrFilter ? static_cast<QtAbstractPropertyManager*>(ocrFilterManager) : stringManager;
    } else if (type == QLatin1String("IDataBinary")) {
        manager = binaryManager;
        children = false;
    } else if (type == QLatin1String("IDataBinaryFile")) {
        manager = binaryFileManager;
        children = false;
    } else if (type == QLatin1String("IDataGeoPoint")) {
        manager = pointManager;
        children = false;
    } else {
        manager = iDataManager;
        children = false;
    }
    auto* row = static_cast<WidgetProperty*>(manager->addProperty(name));
    if (children)
        createChildrenNodes(node, row);
    if (!row)
        return nullptr;

    if (manager == pointManager) {
        const std::array<Script::DItem const*, 3> axes = WidgetProperty::poPointAxes(node);
        // A point needs X and Y for its axis rows; a plane point has no Z node and gets no Z
        // row, where a missing Z must not be read.
        if (axes[0] && axes[1]) {
            for (const Script::DItem* axis : axes) {
                if (!axis)
                    continue;
                if (WidgetProperty* sub = createPropertyItem(*axis, false)) {
                    row->addSubProperty(sub);
                    wPropertyMapping.insert(axis->iDataPath(), sub);
                }
            }
        }
    }

    wPropertyMapping.insert(path, row);
    row->setData(node);
    if (topLevel)
        addProperty(row);
    // New rows start collapsed; only reordering sets expansion otherwise.
    const QList<QtBrowserItem*> rowItems = items(row);
    for (QtBrowserItem* item : rowItems)
        setExpanded(item, false);
    return row;
}

void WTreePropertyBrowser::createChildrenNodes(Script::DItem const& node, WidgetProperty* parent)
{
    const QVariantList children = node.property("IData.Children").toList();
    for (const QVariant& entry : children) {
        const Script::DItem* child = WidgetProperty::poNodeAt(entry);
        // A child that has a row already is left alone, so an update adds only late children.
        if (!child || propertyExists(child->iDataPath()))
            continue;
        WidgetProperty* row = createPropertyItem(*child, false);
        if (!row)
            continue;
        // Without a parent row the child is kept by path only.
        if (parent)
            parent->addSubProperty(row);
        wPropertyMapping.insert(child->iDataPath(), row);
    }
}

void WTreePropertyBrowser::updatePropertyItem(Script::DItem const& node)
{
    const QString& path = node.iDataPath();
    WidgetProperty* row = getWProperty(path);
    if (!row)
        return;
    wPropertyMapping.insert(path, row);
    row->setData(node);
    if (QtBrowserItem* item = currentItem(); item && item->property() == row)
        refreshCurrentEditor();
    createChildrenNodes(node, row);
    row->setPropertyName(App::getTranslatedName(row->propertyName()));
    if (auto* manager = dynamic_cast<Managers::BasePropertyManager*>(row->propertyManager()))
        row->setToolTip(manager->toolTipText(row));
    // The repaint goes through the event loop, so a burst of updates paints once; a row deleted
    // meanwhile takes its repaint with it.
    QTimer::singleShot(0, row, [row] { row->refresh(); });
}

WidgetProperty* WTreePropertyBrowser::getWProperty(QString const& path)
{
    return wPropertyMapping.value(path, nullptr);
}

WidgetProperty* WTreePropertyBrowser::getWProperty(Script::DItem const* node)
{
    return node ? getWProperty(node->iDataPath()) : nullptr;
}

bool WTreePropertyBrowser::propertyExists(QString const& path)
{
    return getWProperty(path) != nullptr;
}

QtBrowserItem* WTreePropertyBrowser::getBrowserItem(WidgetProperty& row)
{
    const QList<QtBrowserItem*> rowItems = items(&row);
    return rowItems.isEmpty() ? nullptr : rowItems.first();
}

QString WTreePropertyBrowser::getPropertyPath(QtProperty const* property)
{
    const auto* row = WidgetProperty::poRow(property);
    return row && row->node ? row->node->iDataPath() : QString();
}

QStringList WTreePropertyBrowser::getPropertyPaths()
{
    QStringList paths;
    const QList<QtBrowserItem*> topLevel = topLevelItems();
    paths.reserve(topLevel.size());
    for (QtBrowserItem* item : topLevel)
        paths.append(getPropertyPath(item->property()));
    return paths;
}

void WTreePropertyBrowser::setPropertyOrder(QStringList const& paths)
{
    if (paths.isEmpty() || paths == getPropertyPaths())
        return;
    QString previous;
    for (const QString& path : paths) {
        WidgetProperty* row = getWProperty(path);
        WidgetProperty* after = getWProperty(previous);
        const QList<QtBrowserItem*> oldItems = items(row);
        const bool expanded = !oldItems.isEmpty() && isExpanded(oldItems.last());
        removeProperty(row);
        insertProperty(row, after);
        previous = path;
        const QList<QtBrowserItem*> newItems = items(row);
        for (QtBrowserItem* item : newItems)
            setExpanded(item, expanded);
    }
}

void WTreePropertyBrowser::refreshItemVisiblity()
{
    const int mode = ItemVisibility::VisibilityInfo::instance()->getVisibilityMode();
    for (WidgetProperty* row : qAsConst(wPropertyMapping)) {
        const Script::DItem* node = row->node;
        bool visible = (node && node->property("IData.IsGuiVisible").toBool()) || mode == 1;
        const QVariant unavailable = node ? node->property("GUI.Unavailable") : QVariant();
        if (unavailable.isValid() && unavailable.toBool())
            visible = false;
        if (row->property("HideSubProperty").toBool())
            visible = false;
        const QList<QtBrowserItem*> rowItems = items(row);
        for (QtBrowserItem* item : rowItems)
            setItemVisible(item, visible);
    }
}

void WTreePropertyBrowser::highlightProperty(QString const& path)
{
    WidgetProperty* row = getWProperty(path);
    QtBrowserItem* item = row ? getBrowserItem(*row) : nullptr;
    if (!item)
        return;
    setItemVisible(item, true);
    setCurrentItem(item);
    setFocus(Qt::OtherFocusReason);
}

void WTreePropertyBrowser::deleteProperty(QString const& path)
{
    WidgetProperty* row = getWProperty(path);
    if (!row)
        return;
    removeProperty(row);
    wPropertyMapping.remove(path);
    delete row;
}

void WTreePropertyBrowser::clear()
{
    saveSplitterPosition();
    QtAbstractPropertyBrowser::clear();
    wPropertyMapping = QMap<QString, WidgetProperty*>();
    if (propertyEditWidget)
        notifyPropEditorDestroyed(propertyEditWidget);
}

void WTreePropertyBrowser::retranslateWidget()
{
    // The name now comes from the path, which the job does not translate.
    for (auto it = wPropertyMapping.cbegin(); it != wPropertyMapping.cend(); ++it) {
        const QString& key = it.key();
        it.value()->setPropertyName(App::getTranslatedName(key.mid(key.lastIndexOf('.') + 1)));
        it.value()->refresh();
    }
    refreshCurrentEditor();
}

void WTreePropertyBrowser::refreshCurrentEditor()
{
    if (propertyEditWidget)
        propertyEditWidget->refreshEditorData();
}

void WTreePropertyBrowser::onProjectModeChanged(int mode)
{
    projectMode = mode;
    if (propertyEditWidget)
        propertyEditWidget->setEnabled((mode & kNoEditing) < kNoEditing);
    setCursor(mode & kArrowCursor ? Qt::ArrowCursor : Qt::ForbiddenCursor);
}

bool WTreePropertyBrowser::isEditorCreationAllowed()
{
    // Without a tree there is no project mode to forbid anything.
    return !me || (me->projectMode & kNoEditing) < kNoEditing;
}

void WTreePropertyBrowser::notifyPropEditorCreated(Editors::BaseEditor* editor)
{
    if (editor == propertyEditWidget)
        return;
    propertyEditWidget = editor;
    if (me)
        emit me->editing(true);
}

void WTreePropertyBrowser::notifyPropEditorDestroyed(Editors::BaseEditor* editor)
{
    if (editor != propertyEditWidget)
        return;
    if (me)
        emit me->editing(false);
    propertyEditWidget = nullptr;
}

void WTreePropertyBrowser::saveSplitterPosition()
{
    const int position = splitterPosition();
    if (position == splitterPos)
        return;
    splitterPos = position;
    if (Settings::WAppSetting* group
        = Settings::WAppSettings::instance()->find_setting(kPropertyEditor))
        group->setValueOf(kSplitterPos, position);
}

void WTreePropertyBrowser::showLinkingwidget(QtProperty* property, QWidget* parent, QString path)
{
    openLinkWidget = true;
    linkPath = path;
    QWidget* editor = createEditor(property, parent);
    openLinkWidget = false;
    // The editor only carried the dialog, which has closed; it has no cell to stand in.
    delete editor;
}

QWidget* WTreePropertyBrowser::createEditor(QtProperty* property, QWidget* parent)
{
    QWidget* editor = QtAbstractPropertyBrowser::createEditor(property, parent);
    if (!editor) {
        if (!(projectMode & kOffline))
            showNonEditablePropInfoMsg(property, this);
    } else if (openLinkWidget) {
        if (auto* baseEditor = qobject_cast<Editors::BaseEditor*>(editor))
            baseEditor->showLinkWidget(linkPath);
    }
    return editor;
}

void WTreePropertyBrowser::showNonEditablePropInfoMsg(QtProperty* property, QWidget* parent)
{
    const QString path = getPropertyPath(property);
    // Shown once for a camera row, and not again while that row stays the one last seen.
    if (path != storedPropertyID
        && (path.contains(QLatin1String("Camera")) || path.contains(QLatin1String("teMap3D")))) {
        storedPropertyID = path;
        showOfflineMessage = true;
    } else if (!showOfflineMessage) {
        return;
    }
    Utils::WMessageBox::info(QObject::tr("This property cannot be changed in offline mode."),
                             QString(), parent, QString());
    showOfflineMessage = false;
}

void WTreePropertyBrowser::resizeEvent(QResizeEvent* event)
{
    // Small resizes only accumulate; the splitter follows once the total passes 2 %.
    static float accu = 1.0f;
    const QSize oldSize = event->oldSize();
    const QSize newSize = event->size();
    if (resizeMode() != Interactive || oldSize.width() <= 0 || oldSize.height() <= 0
        || newSize.width() <= 0 || newSize.height() <= 0)
        return;
    if (double(accu) >= 0.98 && double(accu) <= 1.02) {
        accu = float(newSize.width()) / float(oldSize.width()) * accu;
        return;
    }
    setSplitterPosition(int(float(splitterPosition()) * accu));
    accu = 1.0f;
}

void WTreePropertyBrowser::changeEvent(QEvent* event)
{
    QtTreePropertyBrowser::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslateWidget();
}

} // namespace PropertyBrowser
