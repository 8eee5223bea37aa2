#ifndef EDITORTESTSUPPORT_H
#define EDITORTESTSUPPORT_H

#include "controls/int64validator.h"
#include "dialogs/widgetsetdynamicgeneric.h"
#include "dialogs/widgetsetnode.h"
#include "editors/baseeditor.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/command.h"
#include "sdk/dialogautomation.h"
#include "sdk/ditem.h"
#include "sdk/wappsettings.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetnode.h"

#include "testsupport.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

/// What the tests of the in-row editors share: their rows, dialog runs and ways into the widgets.
namespace EditorTestSupport {

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::WidgetSetDynamicGeneric;
using PropertyBrowser::Editors::WidgetSetNode;

/// Call from initTestCase(): any Qt warning fails the test, a message box never waits for a
/// person, and node states read as the host's.
inline void initEditorTestCase()
{
    TestSupport::failOnWarnings();
    Utils::DialogAutomation::setEnabled(true);
    Utils::DialogAutomation::clear();
    // The tool tip of a row with equal limits is the host's description of the node's state.
    WidgetProperty::m_ErrorDescription = [](int state) {
        return "state " + std::to_string(state);
    };
}

/// Call last in cleanup(): no editor may still count as the open one, no message box came up,
/// and every window is gone.
inline void verifyNothingLeftOpen()
{
    QStringList boxes;
    for (const Utils::DialogAutomation::Call& call : Utils::DialogAutomation::calls())
        boxes << call.m_slTexts.join(QLatin1Char(' '));
    Utils::DialogAutomation::clear();
    QVERIFY2(boxes.isEmpty(), qPrintable(boxes.join(QStringLiteral(", "))));
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    QTRY_VERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
                 qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

/// Reads the type tag that an editor was made with; nothing in the library reads it back.
struct EditorPeek : BaseEditor
{
    static EditorType typeOf(const BaseEditor& editor)
    {
        return editor.*(&EditorPeek::m_editorType);
    }
};

/// A parent that records the keys its children leave to it.
class KeyCatcher : public QWidget
{
public:
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        ++keys;
        event->accept();
    }
};

/// The direct child of @p parent of type @p Child, or null; editors keep their parts there.
template<class Child>
Child* directChild(const QWidget* parent)
{
    return parent->findChild<Child*>(QString(), Qt::FindDirectChildrenOnly);
}

/// The text field of an editor that has one.
inline QLineEdit* lineEditOf(const QWidget* editor)
{
    return directChild<QLineEdit>(editor);
}

/// What became of the value dialog that an action was to open.
using DialogRun = TestSupport::ModalRun;
using TestSupport::retype;
using TestSupport::sendMouse;
using TestSupport::sendWheel;

/// Does @p open, which may bring up the value dialog, and runs @p steps on it in its event loop;
/// another modal dialog fails the test.
inline DialogRun runDialog(const std::function<void()>& open,
                           const std::function<void(WidgetSetNode&)>& steps)
{
    return TestSupport::runModal(open, [&](QDialog& dialog) {
        auto* valueDialog = qobject_cast<WidgetSetNode*>(&dialog);
        QVERIFY2(valueDialog, dialog.metaObject()->className());
        steps(*valueDialog);
    });
}

/// Runs the dialog of @p open, lets @p change alter it, then deletes the editor with @p dropEditor;
/// the dialog must go with the editor at once, so the run never leaves it open.
inline DialogRun runDroppingEditor(const std::function<void()>& open,
                                   const std::function<void(WidgetSetNode&)>& change,
                                   const std::function<void()>& dropEditor)
{
    return runDialog(open, [&](WidgetSetNode& dialog) {
        const QPointer<WidgetSetNode> alive(&dialog);
        change(dialog);
        // A host that clears its rows while the dialog runs: the tree drops the editor.
        dropEditor();
        QVERIFY2(!alive, "the value dialog outlived its editor");
    });
}

/// The panel of type @p Panel on the dialog's value page, or null.
template<class Panel>
Panel* localPanel(WidgetSetNode& dialog)
{
    return dialog.ui->pageLocal->findChild<Panel*>();
}

/// The tree of link targets on the dialog's link page, or null.
inline QTreeWidget* linkTree(WidgetSetNode& dialog)
{
    auto* picker = dialog.ui->pageDynamic->findChild<WidgetSetDynamicGeneric*>();
    return picker ? picker->ui->m_poTreeWidget : nullptr;
}

/// The leaf of the link tree that stands for the node at @p path, or null.
inline QTreeWidgetItem* linkItem(QTreeWidget* tree, const QString& path)
{
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->childCount() == 0 && (*it)->data(0, Qt::UserRole).toString() == path)
            return *it;
    }
    return nullptr;
}

/// Clicks @p item where a person sees it, with every branch open.
inline void clickItem(QTreeWidget* tree, QTreeWidgetItem* item)
{
    tree->expandAll();
    tree->scrollToItem(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
}

/// Picks the link target at @p path in the open dialog's link tree with a click.
inline void pickLinkTarget(WidgetSetNode& dialog, const QString& path)
{
    QTreeWidget* tree = linkTree(dialog);
    QVERIFY(tree);
    QTreeWidgetItem* target = linkItem(tree, path);
    QVERIFY(target);
    clickItem(tree, target);
    QVERIFY(target->isSelected());
}

/// The limits as an edit of them carries them.
template<class Number>
QVariant limits(Number minimum, Number maximum)
{
    QMap<QString, QVariant> map;
    map.insert(QStringLiteral("Min"), minimum);
    map.insert(QStringLiteral("Max"), maximum);
    return map;
}

/// The handle's rectangle as the slider's own style places it.
inline QRect handleRect(const QSlider* slider)
{
    // The style option is built as QSlider builds it.
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.subControls = QStyle::SC_None;
    option.activeSubControls = QStyle::SC_None;
    option.orientation = slider->orientation();
    option.maximum = slider->maximum();
    option.minimum = slider->minimum();
    option.tickPosition = slider->tickPosition();
    option.tickInterval = slider->tickInterval();
    option.upsideDown = slider->orientation() == Qt::Horizontal
        ? slider->invertedAppearance() != (option.direction == Qt::RightToLeft)
        : !slider->invertedAppearance();
    option.direction = Qt::LeftToRight;
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    option.singleStep = slider->singleStep();
    option.pageStep = slider->pageStep();
    if (slider->orientation() == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle,
                                           slider);
}

/// Forgets what earlier browsers stored, so that a new browser starts as on a first run.
inline void clearBrowserSettings()
{
    Settings::WAppSettings::instance()->removeSetting(QStringLiteral("PROPERTY_EDITOR"));
}

/// Makes @p node one that a tree browser shows as the row @p description, and lets it be edited.
inline void showInTree(Script::DItem& node, const QString& description)
{
    node.setProperty("IData.Description", description);
    node.setProperty("IData.IsGuiVisible", true);
    node.setProperty("iIsEditable", true);
}

/// A new tree browser, owned by the caller, large enough to show its rows.
inline WTreePropertyBrowser* newBrowser()
{
    auto* browser = new WTreePropertyBrowser(nullptr);
    browser->resize(400, 300);
    return browser;
}

/// Opens the editor of @p row, the browser's first, as the tree does; null if it is no @p Editor.
template<class Editor>
Editor* openEditorInTree(WTreePropertyBrowser& browser, WidgetProperty* row)
{
    browser.editItem(browser.topLevelItem(row));
    auto* view = browser.findChild<QTreeView*>();
    return qobject_cast<Editor*>(view->indexWidget(view->model()->index(0, 1)));
}

/// A row of @p Manager with its node, link targets and @p Editor, in a host that catches keys.
template<class Manager, class Editor>
struct RowFixture
{
    /// The manager of the row.
    using RowManager = Manager;
    /// The editor of the row.
    using RowEditor = Editor;

    /// A node at @p path of @p nodeType for @p rowManager, now owned; give it values, then bind().
    RowFixture(const QString& path, const QString& nodeType, Script::DItem::IoType ioType,
               Manager* rowManager)
        : node(path, nodeType, ioType)
        , manager(rowManager)
        , host(new KeyCatcher)
    { }

    /// Offers outputs at @p targetPaths as link targets, then shows the node in the row @p name.
    void bind(const QString& name, std::initializer_list<const char*> targetPaths)
    {
        for (const char* path : targetPaths) {
            targets.push_back(std::make_unique<Script::DItem>(QLatin1String(path), node.iDataType(),
                                                              Script::DItem::IoOutput));
        }
        QList<Script::DItem*> linkable;
        for (const auto& target : targets)
            linkable.append(target.get());
        node.setProperty("IData.AcceptableLinks",
                         QVariant::fromValue(Script::DItemListPair(linkable, linkable)));
        row = dynamic_cast<WidgetProperty*>(manager->addProperty(name));
        row->setData(node);
        // Edits count from here on; building the row sends none.
        edits = std::make_unique<QSignalSpy>(manager.get(), &Manager::vPropertyEdited);
    }

    /// Links the node to the node at @p path.
    void link(const QString& path)
    {
        node.setLinked(true);
        node.setLinkedPath(path);
    }

    /// Builds the editor, of type @p Made, in the host.
    template<class Made = Editor>
    Made* makeEditor()
    {
        auto* made = new Made(host.get(), row);
        editor = made;
        auto* layout = new QHBoxLayout(host.get());
        layout->addWidget(editor);
        return made;
    }

    /// Builds the editor, of type @p Made, and shows it in the active window.
    template<class Made = Editor>
    Made* showEditor()
    {
        Made* made = makeEditor<Made>();
        host->resize(300, 30);
        host->show();
        if (!QTest::qWaitForWindowActive(host.get()))
            qWarning("the editor's window did not become active");
        return made;
    }

    /// The editor's button that opens the value dialog.
    QPushButton* browseButton() const { return directChild<QPushButton>(editor); }

    /// Clicks the browse button and runs @p steps on the dialog it brings up.
    DialogRun clickBrowse(const std::function<void(WidgetSetNode&)>& steps)
    {
        return runDialog([this] { QTest::mouseClick(browseButton(), Qt::LeftButton); }, steps);
    }

    Script::DItem node;
    std::vector<std::unique_ptr<Script::DItem>> targets;
    std::unique_ptr<Manager> manager;
    std::unique_ptr<KeyCatcher> host;
    WidgetProperty* row = nullptr;
    Editor* editor = nullptr;
    std::unique_ptr<QSignalSpy> edits;
};

/// Adds the rows of the two checks below: a value page choice, named @p valueRow, and a link.
inline void addChoiceRows(const char* valueRow)
{
    QTest::addColumn<bool>("linkPage");
    QTest::newRow(valueRow) << false;
    QTest::newRow("link picked") << true;
}

/// Checks that cancelling a linked input's dialog, after @p change chose, sends nothing.
template<class Fixture>
void verifyCancelSendsNothing(const QString& linkedPath,
                              const std::function<void(WidgetSetNode&)>& change,
                              const std::function<void()>& letCommitsHappen = {})
{
    Fixture f(Script::DItem::IoInput);
    f.link(linkedPath);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        change(dialog);
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    // An editor that commits after a delay gets the time to do so.
    if (letCommitsHappen)
        letCommitsHappen();
    QCOMPARE(f.edits->count(), 0);
}

/// Checks that a dialog, after @p change chose, goes with its deleted editor and sends nothing.
template<class Fixture>
void verifyEditorDroppedWhileDialogRuns(const QString& linkedPath,
                                        const std::function<void(WidgetSetNode&)>& change,
                                        const std::function<void()>& letCommitsHappen = {})
{
    Fixture f(Script::DItem::IoInput);
    f.link(linkedPath);
    f.showEditor();
    const DialogRun run
        = runDroppingEditor([&] { QTest::mouseClick(f.browseButton(), Qt::LeftButton); }, change,
                            [&] {
                                delete f.editor;
                                f.editor = nullptr;
                            });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    // An editor that commits after a delay gets the time to do so.
    if (letCommitsHappen)
        letCommitsHappen();
    QCOMPARE(f.edits->count(), 0);
}

/// Checks that @p Factory makes editors only for bound rows of its kind, as @p Fixture's row.
template<class Factory, class PlainManager, class Fixture>
void verifyFactoryRefusesOtherProperties()
{
    Factory factory;
    QWidget parent;
    // A property of a plain manager is no row of the tree.
    PlainManager plainManager;
    factory.addPropertyManager(&plainManager);
    auto* plain = plainManager.addProperty(QStringLiteral("Plain"));
    QVERIFY(!factory.createEditor(plain, &parent));
    // A row that is bound to no node.
    typename Fixture::RowManager manager;
    factory.addPropertyManager(&manager);
    auto* unbound = manager.addProperty(QStringLiteral("Unbound"));
    QVERIFY(!factory.createEditor(unbound, &parent));
    QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    // The same factory gives a bound, editable row its editor.
    Fixture f(Script::DItem::IoInput);
    factory.addPropertyManager(f.manager.get());
    std::unique_ptr<QWidget> made(factory.createEditor(f.row, &parent));
    QVERIFY(qobject_cast<typename Fixture::RowEditor*>(made.get()));
}

/// The nodes, rows, editor and browser of a test class that derives from it and calls dropRows().
template<class Manager, class Editor, class Number>
class NumericRows
{
protected:
    /// Rows of nodes of @p nodeType.
    explicit NumericRows(const QString& nodeType)
        : m_sNodeType(nodeType)
    { }

    /// A visible, editable node at @p path whose local and dynamic value is @p value.
    Script::DItem* makeNode(const QString& path, Script::DItem::IoType ioType, Number value,
                            Number minimum, Number maximum, Number step)
    {
        m_lNodes.push_back(std::make_unique<Script::DItem>(path, m_sNodeType, ioType));
        Script::DItem* node = m_lNodes.back().get();
        showInTree(*node, path.section('.', -1));
        node->setProperty("IDataNumeric.LocalValue", value);
        node->setProperty("IDataNumeric.DynamicValue", value);
        node->setProperty("IDataNumeric.LocalMin", minimum);
        node->setProperty("IDataNumeric.LocalMax", maximum);
        node->setProperty("IDataNumeric.LocalStep", step);
        return node;
    }

    /// A new row for @p node, of the manager that is made with the first row.
    WidgetProperty* makeRow(Script::DItem* node)
    {
        if (!m_poManager)
            m_poManager = std::make_unique<Manager>();
        auto* row = dynamic_cast<WidgetProperty*>(
            m_poManager->addProperty(node->property("IData.Description").toString()));
        if (row)
            row->setData(*node);
        return row;
    }

    /// The editor under test, on a new row for @p node; it takes the place of the one before.
    Editor* makeEditor(Script::DItem* node)
    {
        m_poEditor = std::make_unique<Editor>(nullptr, makeRow(node));
        return m_poEditor.get();
    }

    /// Offers three nodes of the kind as link targets, as lists of objects with @p asVariantList.
    void addLinkTargets(Script::DItem* node, bool asVariantList = false)
    {
        QList<Script::DItem*> targets;
        for (const char* path : {"Job.Camera.Out", "Job.Filter.Out", "Job.Filter.Level"}) {
            m_lNodes.push_back(std::make_unique<Script::DItem>(QLatin1String(path), m_sNodeType));
            targets.append(m_lNodes.back().get());
        }
        if (!asVariantList) {
            node->setProperty("IData.AcceptableLinks",
                              QVariant::fromValue(Script::DItemListPair(targets, {})));
            return;
        }
        // As a script or a settings file writes it.
        QVariantList first;
        for (Script::DItem* target : targets)
            first.append(QVariant::fromValue<QObject*>(target));
        node->setProperty("IData.AcceptableLinks", QVariantList({QVariant(first), QVariantList()}));
    }

    /// The tree browser of this test; cleanup() deletes it.
    WTreePropertyBrowser* makeBrowser()
    {
        m_poBrowser = newBrowser();
        return m_poBrowser;
    }

    /// Takes down the editor, then the browser, the rows and the nodes.
    void dropRows()
    {
        m_poEditor.reset();
        delete m_poBrowser;
        m_poManager.reset();
        m_lNodes.clear();
    }

    std::unique_ptr<Manager> m_poManager;
    std::vector<std::unique_ptr<Script::DItem>> m_lNodes;
    std::unique_ptr<Editor> m_poEditor;
    QPointer<WTreePropertyBrowser> m_poBrowser;

private:
    QString m_sNodeType;
};

/// Checks an integer row's editor: link label, text field above the @p Slider, browse button.
template<class Slider>
void verifyIntegerRowBuilt(BaseEditor* editor, const QString& objectName)
{
    QCOMPARE(editor->objectName(), objectName);
    QLineEdit* edit = lineEditOf(editor);
    Slider* slider = directChild<Slider>(editor);
    QVERIFY(edit);
    QVERIFY(slider);
    QCOMPARE(editor->focusProxy(), static_cast<QWidget*>(edit));

    auto* row = qobject_cast<QHBoxLayout*>(editor->layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins(4, 0, 0, 0));
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->count(), 3);
    QVERIFY(qobject_cast<QLabel*>(row->itemAt(0)->widget()));
    QVERIFY(qobject_cast<QPushButton*>(row->itemAt(2)->widget()));
    auto* value = qobject_cast<QVBoxLayout*>(row->itemAt(1)->layout());
    QVERIFY(value);
    QCOMPARE(value->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(value->spacing(), 0);
    QCOMPARE(value->count(), 2);
    QCOMPARE(value->itemAt(0)->widget(), static_cast<QWidget*>(edit));
    QCOMPARE(value->itemAt(1)->widget(), static_cast<QWidget*>(slider));

    QVERIFY(!edit->hasFrame());
    QVERIFY(!edit->acceptDrops());
    QVERIFY(edit->alignment() & Qt::AlignTop);
    QCOMPARE(edit->locale(), QLocale(QLocale::English, QLocale::UnitedStates));
    const auto* validator = qobject_cast<const Int64Validator*>(edit->validator());
    QVERIFY(validator);
    QCOMPARE(validator->locale(), QLocale(QLocale::English, QLocale::UnitedStates));

    QCOMPARE(slider->orientation(), Qt::Horizontal);
    QCOMPARE(slider->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!slider->hasTracking());
    QCOMPARE(slider->focusPolicy(), Qt::NoFocus);
    QVERIFY(!slider->styleSheet().isEmpty());
    QCOMPARE(slider->styleSheet(), BaseEditor::commonStylesheet());
    QCOMPARE(editor->mode(), BaseEditor::ModeLocal);
}

/// Shows @p editor, types a number into its line edit and clicks near the right end of
/// @p slider: exactly one edit leaves, the slider's, and the line edit keeps the focus, so
/// leaving it afterwards sends nothing more. @p edits watches the row's manager.
inline void verifyTypingThenClickingSendsOnce(QWidget* editor, QSlider* slider,
                                              const QSignalSpy& edits)
{
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QLineEdit* edit = lineEditOf(editor);
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    TestSupport::retype(edit, QStringLiteral("42"));
    QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(slider->width() - 3, slider->height() / 2));
    QCOMPARE(edits.count(), 1);
    QCOMPARE(edits.at(0).at(1).toInt(), int(VardeenDefs::PropertyEditor::SetValue));
    QVERIFY(edits.at(0).at(2).toLongLong() > 90);
    QVERIFY(edit->hasFocus());
    edit->clearFocus();
    QCOMPARE(edits.count(), 1);
}

} // namespace EditorTestSupport

#endif
