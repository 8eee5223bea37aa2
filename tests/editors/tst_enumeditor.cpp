#include "dialogs/widgetsetdynamicgeneric.h"
#include "dialogs/widgetsetnode.h"
#include "editors/enumeditor.h"
#include "property_model/enumeditorfactory.h"
#include "property_model/enumpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtbrowseritem.h"
#include "sdk/ditem.h"
#include "sdk/wappsettings.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetnode.h"

#include "../navigator/tabletranslator.h"
#include "../propertybrowser/propertymetatype.h"
#include "../property_model/managertestsupport.h"
#include "testsupport.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::EnumEditor;
using PropertyBrowser::Editors::WidgetSetDynamicGeneric;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::EnumPropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;
using ManagerTest::verifyOnlyEdit;

namespace {

const QString kPath = QStringLiteral("Job.Filter.Mode");
const QStringList kChoices = {QStringLiteral("Fast"), QStringLiteral("Slow"),
                              QStringLiteral("Exact")};
const QStringList kShown = {QStringLiteral("Schnell"), QStringLiteral("Langsam"),
                            QStringLiteral("Genau")};

/// Reads the type tag that an editor was made with; nothing in the library reads it back.
struct EditorPeek : BaseEditor
{
    static EditorType typeOf(const BaseEditor& editor) { return editor.*(&EditorPeek::m_editorType); }
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

/// An editor whose dialog and commit are replaced, as a subclass with a dialog of its own does.
class ReplacingEditor : public EnumEditor
{
public:
    using EnumEditor::EnumEditor;

    void vButtonClicked() override
    {
        ++opened;
        linkPaths << m_linkPath;
    }
    void commitData(int index) override { commits << index; }

    int opened = 0;
    QStringList linkPaths;
    QList<int> commits;
};

/// What became of the value dialog that an action was to open.
struct DialogRun
{
    /// A value dialog came up as the modal window.
    bool shown = false;
    /// The steps did not close it, so the run closed it with reject().
    bool leftOpen = false;
};

/// Does @p open, which may bring up the value dialog, and runs @p steps on the dialog inside its
/// event loop. Steps that fail, or forget to close the dialog, still end with it closed, so no
/// test waits for a person.
DialogRun runDialog(const std::function<void()>& open,
                    const std::function<void(WidgetSetNode&)>& steps)
{
    DialogRun run;
    QTimer watch;
    int ticks = 0;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<WidgetSetNode*>(QApplication::activeModalWidget());
        if (!dialog) {
            if (++ticks > 1000)
                watch.stop();
            return;
        }
        watch.stop();
        run.shown = true;
        // The steps may end the dialog's life themselves.
        const QPointer<WidgetSetNode> guard(dialog);
        steps(*dialog);
        if (guard && guard->isVisible()) {
            run.leftOpen = true;
            guard->reject();
        }
    });
    watch.start(0);
    open();
    return run;
}

/// Opens the editor's list with Space, as a person does.
void openListWithSpace(EnumEditor* editor)
{
    // The offscreen platform says so when a popup asks for the keyboard; that is no fault here.
    TestSupport::expectWarning(
        QRegularExpression(QStringLiteral("^This plugin does not support grabbing the keyboard")));
    QTest::keyClick(editor, Qt::Key_Space);
}

QComboBox* localComboBox(WidgetSetNode& dialog)
{
    return dialog.ui->pageLocal->findChild<QComboBox*>();
}

QTreeWidget* linkTree(WidgetSetNode& dialog)
{
    auto* picker = dialog.ui->pageDynamic->findChild<WidgetSetDynamicGeneric*>();
    return picker ? picker->ui->m_poTreeWidget : nullptr;
}

/// The leaf of the link tree that stands for the node at @p path, or null.
QTreeWidgetItem* linkItem(QTreeWidget* tree, const QString& path)
{
    for (QTreeWidgetItem* item :
         tree->findItems(path.section('.', -1), Qt::MatchExactly | Qt::MatchRecursive)) {
        if (item->data(0, Qt::UserRole).toString() == path)
            return item;
    }
    return nullptr;
}

void clickItem(QTreeWidget* tree, QTreeWidgetItem* item)
{
    tree->expandAll();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
}

/// Makes the open dialog hold something to send: another link target on the link page when
/// @p linkPage holds, else another choice on the value page.
void changeChoice(WidgetSetNode& dialog, bool linkPage)
{
    if (linkPage) {
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QTreeWidgetItem* target = linkItem(tree, QStringLiteral("Job.Preset.Mode"));
        QVERIFY(target);
        clickItem(tree, target);
        QVERIFY(target->isSelected());
    } else {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QComboBox* box = localComboBox(dialog);
        QVERIFY(box);
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentIndex(), 2);
    }
}

QStringList texts(const QComboBox& box)
{
    QStringList result;
    for (int i = 0; i < box.count(); ++i)
        result << box.itemText(i);
    return result;
}

QStringList names(const QComboBox& box)
{
    QStringList result;
    for (int i = 0; i < box.count(); ++i) {
        const QVariant data = box.itemData(i, Qt::UserRole);
        result << (data.userType() == QMetaType::QString ? data.toString() : QStringLiteral("?"));
    }
    return result;
}

/// One enum row with its node and its editor, inside a host that catches the keys the editor
/// passes on.
struct Fixture
{
    explicit Fixture(IoType ioType)
        : node(kPath, QStringLiteral("IDataBasicEnum"), ioType)
        , manager(new EnumPropertyManager)
        , host(new KeyCatcher)
    {
        node.setProperty("IDataBasicEnum.EnumList", kChoices);
        node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Slow"));
        node.setProperty("IDataBasicEnum.LocalStringnifiedValue", QStringLiteral("Slow"));
        node.setProperty("iIsEditable", true);
        for (const char* path : {"Job.Camera.Mode", "Job.Preset.Mode"}) {
            targets.push_back(std::make_unique<Script::DItem>(QLatin1String(path),
                                                              QStringLiteral("IDataBasicEnum"),
                                                              Script::DItem::IoOutput));
        }
        QList<Script::DItem*> linkable;
        for (const auto& target : targets)
            linkable.append(target.get());
        node.setProperty("IData.AcceptableLinks",
                         QVariant::fromValue(Script::DItemListPair(linkable, linkable)));
        row = dynamic_cast<WidgetProperty*>(manager->addProperty(QStringLiteral("Mode")));
        row->setData(node);
        edits = std::make_unique<QSignalSpy>(manager.get(), &EnumPropertyManager::vPropertyEdited);
    }

    void link(const QString& path)
    {
        node.setLinked(true);
        node.setLinkedPath(path);
    }

    template<class Editor = EnumEditor>
    Editor* makeEditor()
    {
        auto* made = new Editor(host.get(), row);
        editor = made;
        auto* layout = new QHBoxLayout(host.get());
        layout->addWidget(editor);
        return made;
    }

    template<class Editor = EnumEditor>
    Editor* showEditor()
    {
        Editor* made = makeEditor<Editor>();
        host->resize(300, 30);
        host->show();
        if (!QTest::qWaitForWindowActive(host.get()))
            qWarning("the editor's window did not become active");
        return made;
    }

    QComboBox* comboBox() const
    {
        return editor->findChild<QComboBox*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QPushButton* browseButton() const
    {
        return editor->findChild<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    }

    DialogRun clickBrowse(const std::function<void(WidgetSetNode&)>& steps)
    {
        return runDialog([this] { QTest::mouseClick(browseButton(), Qt::LeftButton); }, steps);
    }

    Script::DItem node;
    std::vector<std::unique_ptr<Script::DItem>> targets;
    std::unique_ptr<EnumPropertyManager> manager;
    std::unique_ptr<KeyCatcher> host;
    WidgetProperty* row = nullptr;
    EnumEditor* editor = nullptr;
    std::unique_ptr<QSignalSpy> edits;
};

} // namespace

class TestEnumEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void constructionSetsUpRow();
    void readDataFillsChoices();
    void readDataFindsValueExactly_data();
    void readDataFindsValueExactly();
    void refreshRefillsWithoutSending();
    void outputKeepsEntries();
    void keyboardChoicesEachCommit();
    void popupChoiceByMouse();
    void popupChoiceByKeyboard();
    void sameEntryAgainSendsNothing_data();
    void sameEntryAgainSendsNothing();
    void otherKeysOnlyPassOn();
    void spaceOpensListAndPassesOn();
    void subclassReplacesDialogAndCommit();
    void linkClickReachesManager();

    void dialogShowsNode_data();
    void dialogShowsNode();
    void dialogCommitRule_data();
    void dialogCommitRule();
    void dialogLinksPickedNode();
    void dialogResetClearsLink();
    void dialogCancelSendsNothing_data();
    void dialogCancelSendsNothing();
    void editorDroppedWhileDialogRuns_data();
    void editorDroppedWhileDialogRuns();
    void noDialogForOutput_data();
    void noDialogForOutput();
    void showLinkWidgetPreselects();

    void factory_data();
    void factory();
    void factoryRefusesOtherProperties();
    void chosenThroughBrowser();

private:
    std::unique_ptr<TableTranslator> m_poTranslator;
};

void TestEnumEditor::initTestCase()
{
    TestSupport::failOnWarnings();
    WidgetProperty::m_ErrorDescription = [](int state) { return "state " + std::to_string(state); };
    Script::DItem::vRegisterMetaTypes();
    qRegisterMetaType<Command>();
    qRegisterMetaType<QtProperty*>();
}

void TestEnumEditor::init()
{
    m_poTranslator = std::make_unique<TableTranslator>();
    for (int i = 0; i < kChoices.size(); ++i)
        m_poTranslator->add(QStringLiteral("IData"), kChoices.at(i), kShown.at(i));
    QCoreApplication::installTranslator(m_poTranslator.get());
}

void TestEnumEditor::cleanup()
{
    QCoreApplication::removeTranslator(m_poTranslator.get());
    m_poTranslator.reset();
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    QTRY_VERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
                 qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

// --- the row ------------------------------------------------------------------------------

void TestEnumEditor::constructionSetsUpRow()
{
    Fixture f(Script::DItem::IoInput);
    EnumEditor* editor = f.makeEditor();
    QCOMPARE(editor->objectName(), QStringLiteral("EnumPropertyEditor"));
    QCOMPARE(EditorPeek::typeOf(*editor), BaseEditor::TypeEnum);
    QCOMPARE(int(EditorPeek::typeOf(*editor)), 3);
    QComboBox* box = f.comboBox();
    QVERIFY(box);
    QVERIFY(!box->hasFrame());
    QCOMPARE(box->focusPolicy(), Qt::NoFocus);
    QCOMPARE(box->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(box->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(box->view()->textElideMode(), Qt::ElideRight);

    auto* layout = qobject_cast<QHBoxLayout*>(editor->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->count(), 3);
    QVERIFY(qobject_cast<QLabel*>(layout->itemAt(0)->widget()));
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(box));
    QCOMPARE(layout->itemAt(2)->widget(), static_cast<QWidget*>(f.browseButton()));
}

void TestEnumEditor::readDataFillsChoices()
{
    Fixture f(Script::DItem::IoNone);
    QSignalSpy nameChanges(f.manager.get(), &QtEnumPropertyManager::enumNamesChanged);
    f.makeEditor();
    QComboBox* box = f.comboBox();
    QCOMPARE(f.manager->enumNames(f.row), kChoices);
    QCOMPARE(nameChanges.count(), 1);
    QCOMPARE(texts(*box), kShown);
    QCOMPARE(names(*box), kChoices);
    for (int i = 0; i < box->count(); ++i)
        QVERIFY(box->itemIcon(i).isNull());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(box->toolTip(), QStringLiteral("Langsam"));
    // Filling the box sends nothing.
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::readDataFindsValueExactly_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("linkedPath");
    QTest::addColumn<int>("index");
    QTest::newRow("first") << "Fast" << QString() << 0;
    QTest::newRow("last") << "Exact" << QString() << 2;
    QTest::newRow("case differs") << "slow" << QString() << -1;
    QTest::newRow("prefix only") << "Slo" << QString() << -1;
    QTest::newRow("translated name") << "Langsam" << QString() << -1;
    QTest::newRow("empty") << "" << QString() << -1;
    // A linked node's value is the last segment of its link path.
    QTest::newRow("linked") << "Slow" << "Job.Camera.Fast" << 0;
}

void TestEnumEditor::readDataFindsValueExactly()
{
    QFETCH(QString, value);
    QFETCH(QString, linkedPath);
    QFETCH(int, index);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", value);
    if (!linkedPath.isEmpty())
        f.link(linkedPath);
    f.makeEditor();
    QCOMPARE(f.comboBox()->count(), 3);
    QCOMPARE(f.comboBox()->currentIndex(), index);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::refreshRefillsWithoutSending()
{
    Fixture f(Script::DItem::IoInput);
    f.makeEditor();
    f.node.setProperty("IDataBasicEnum.EnumList", QStringList({"Slow", "Exact"}));
    f.node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Exact"));
    f.editor->refreshEditorData();
    QCOMPARE(texts(*f.comboBox()), QStringList({"Langsam", "Genau"}));
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.comboBox()->toolTip(), QStringLiteral("Genau"));
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::outputKeepsEntries()
{
    Fixture f(Script::DItem::IoNone);
    f.makeEditor();
    f.node.setIoType(Script::DItem::IoOutput);
    f.node.setProperty("IDataBasicEnum.EnumList", QStringList({"Red", "Green"}));
    f.node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Green"));
    f.editor->refreshEditorData();
    // The manager gets the node's list whatever the kind; the box keeps its entries.
    QCOMPARE(f.manager->enumNames(f.row), QStringList({"Red", "Green"}));
    QCOMPARE(texts(*f.comboBox()), kShown);
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.comboBox()->toolTip(), QStringLiteral("Langsam"));
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::keyboardChoicesEachCommit()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentIndex(), 2);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, QStringLiteral("Exact"));
    // Back to the node's own value: sent as well, since nothing compares.
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 2);
    ManagerTest::verifyEdit(*f.edits, 1, kPath, Command::SetValue, QStringLiteral("Slow"));
}

void TestEnumEditor::popupChoiceByMouse()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    openListWithSpace(f.editor);
    // The key opened the list and went on to the parent as ignored.
    QCOMPARE(f.host->keys, 1);
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    QCOMPARE(f.edits->count(), 0);
    const QRect first = list->visualRect(list->model()->index(0, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first.center());
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(box->currentIndex(), 0);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, QStringLiteral("Fast"));
}

void TestEnumEditor::popupChoiceByKeyboard()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    openListWithSpace(f.editor);
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    QCOMPARE(list->currentIndex().row(), 1);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(f.edits->count(), 0);
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(box->currentIndex(), 2);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, QStringLiteral("Exact"));
}

void TestEnumEditor::sameEntryAgainSendsNothing_data()
{
    QTest::addColumn<bool>("mouse");
    QTest::newRow("clicked") << true;
    QTest::newRow("Return") << false;
}

void TestEnumEditor::sameEntryAgainSendsNothing()
{
    QFETCH(bool, mouse);
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    openListWithSpace(f.editor);
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    if (mouse) {
        const QRect current = list->visualRect(list->model()->index(1, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, current.center());
    } else {
        QTest::keyClick(list, Qt::Key_Return);
    }
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::otherKeysOnlyPassOn()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QTest::keyClick(f.editor, Qt::Key_A);
    QTest::keyClick(f.editor, Qt::Key_Return);
    QCOMPARE(f.host->keys, 2);
    QVERIFY(!f.comboBox()->view()->isVisible());
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::spaceOpensListAndPassesOn()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QAbstractItemView* list = f.comboBox()->view();
    QVERIFY(!list->isVisible());
    openListWithSpace(f.editor);
    QTRY_VERIFY(list->isVisible());
    // Opening the list is all that Space does here; the parent still gets the key.
    QCOMPARE(f.host->keys, 1);
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QTest::keyClick(list, Qt::Key_Escape);
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::subclassReplacesDialogAndCommit()
{
    Fixture f(Script::DItem::IoInput);
    auto* editor = f.showEditor<ReplacingEditor>();
    const DialogRun run = f.clickBrowse([](WidgetSetNode& dialog) {
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(!run.shown);
    QCOMPARE(editor->opened, 1);
    editor->showLinkWidget(QStringLiteral("Job.Preset.Mode"));
    QCOMPARE(editor->opened, 2);
    QCOMPARE(editor->linkPaths, QStringList({QString(), QStringLiteral("Job.Preset.Mode")}));
    QTest::keyClick(f.comboBox(), Qt::Key_Down);
    QCOMPARE(editor->commits, QList<int>({2}));
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::linkClickReachesManager()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Mode"));
    f.makeEditor();
    QCOMPARE(f.editor->mode(), BaseEditor::ModeLinked);
    QSignalSpy clicks(f.manager.get(), &EnumPropertyManager::linkClicked);
    auto* label = f.editor->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(label);
    emit label->linkActivated(QStringLiteral("Job.Camera.Mode"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toString(), QStringLiteral("Job.Camera.Mode"));
}

// --- the value dialog ---------------------------------------------------------------------

void TestEnumEditor::dialogShowsNode_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<QString>("localValue");
    QTest::addColumn<int>("index");
    QTest::newRow("setting") << 0 << "Exact" << 2;
    QTest::newRow("input") << 1 << "Fast" << 0;
    QTest::newRow("case differs") << 0 << "exact" << -1;
}

void TestEnumEditor::dialogShowsNode()
{
    QFETCH(int, ioType);
    QFETCH(QString, localValue);
    QFETCH(int, index);
    Fixture f(static_cast<IoType>(ioType));
    // The page shows the local choice, not the effective one.
    f.node.setProperty("IDataBasicEnum.LocalStringnifiedValue", localValue);
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &EnumPropertyManager::refreshData);
    const bool input = ioType == 1;
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Mode"));
        QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(f.editor));
        QComboBox* box = localComboBox(dialog);
        QVERIFY(box);
        QCOMPARE(texts(*box), kShown);
        QCOMPARE(names(*box), kChoices);
        QCOMPARE(box->currentIndex(), index);
        QCOMPARE(dialog.ui->grpNodeValueType->isVisible(), input);
        QCOMPARE(dialog.ui->rbDynamicValue->isChecked(), input);
        QCOMPARE(dialog.ui->rbLocalValue->isChecked(), !input);
        QCOMPARE(refreshes.count(), input ? 1 : 0);
        if (input)
            QCOMPARE(refreshes.at(0).at(0).toString(), kPath);
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::dialogCommitRule_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<bool>("sends");
    QTest::newRow("unlinked, same choice") << false << 1 << false;
    QTest::newRow("unlinked, other choice") << false << 2 << true;
    // The same choice on a linked node replaces the link.
    QTest::newRow("linked, same choice") << true << 1 << true;
    QTest::newRow("linked, other choice") << true << 0 << true;
}

void TestEnumEditor::dialogCommitRule()
{
    QFETCH(bool, linked);
    QFETCH(int, chosen);
    QFETCH(bool, sends);

    Fixture f(Script::DItem::IoInput);
    if (linked)
        f.link(QStringLiteral("Job.Camera.Mode"));
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QVERIFY(dialog.ui->rbLocalValue->isChecked());
        QComboBox* box = localComboBox(dialog);
        QVERIFY(box);
        QCOMPARE(box->currentIndex(), 1);
        while (box->currentIndex() < chosen)
            QTest::keyClick(box, Qt::Key_Down);
        while (box->currentIndex() > chosen)
            QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(box->currentIndex(), chosen);
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    if (sends)
        verifyOnlyEdit(*f.edits, kPath, Command::SetValue, kChoices.at(chosen));
    else
        QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::dialogLinksPickedNode()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
        QVERIFY(dialog.ui->rbDynamicValue->isEnabled());
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QVERIFY(tree->isEnabled());
        QTreeWidgetItem* target = linkItem(tree, QStringLiteral("Job.Preset.Mode"));
        QVERIFY(target);
        clickItem(tree, target);
        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Preset.Mode"));
}

void TestEnumEditor::dialogResetClearsLink()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Mode"));
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QCOMPARE(tree->selectedItems().size(), 1);
        QVERIFY(dialog.ui->m_ResetBtn->isVisible());
        QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_ResetBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral(""));
}

void TestEnumEditor::dialogCancelSendsNothing_data()
{
    QTest::addColumn<bool>("linkPage");
    QTest::newRow("choice changed") << false;
    QTest::newRow("link picked") << true;
}

void TestEnumEditor::dialogCancelSendsNothing()
{
    QFETCH(bool, linkPage);
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Mode"));
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        changeChoice(dialog, linkPage);
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::editorDroppedWhileDialogRuns_data()
{
    QTest::addColumn<bool>("linkPage");
    QTest::newRow("choice changed") << false;
    QTest::newRow("link picked") << true;
}

void TestEnumEditor::editorDroppedWhileDialogRuns()
{
    QFETCH(bool, linkPage);
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Mode"));
    f.showEditor();
    QPointer<WidgetSetNode> seen;
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        seen = &dialog;
        changeChoice(dialog, linkPage);
        // The host clears the rows while the dialog runs: the tree drops the editor, and the
        // dialog goes with it.
        delete f.editor;
        f.editor = nullptr;
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(!seen);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::noDialogForOutput_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("output") << 2;
    QTest::newRow("unknown kind") << 3;
}

void TestEnumEditor::noDialogForOutput()
{
    QFETCH(int, ioType);
    Fixture f(static_cast<IoType>(ioType));
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &EnumPropertyManager::refreshData);
    const DialogRun run = f.clickBrowse([](WidgetSetNode& dialog) {
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(!run.shown);
    QCOMPARE(refreshes.count(), 0);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::showLinkWidgetPreselects()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run = runDialog(
        [&] { f.editor->showLinkWidget(QStringLiteral("Job.Preset.Mode")); },
        [&](WidgetSetNode& dialog) {
            QTreeWidget* tree = linkTree(dialog);
            QVERIFY(tree);
            QCOMPARE(tree->selectedItems().size(), 1);
            QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                     QStringLiteral("Job.Preset.Mode"));
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Preset.Mode"));
}

// --- the factory --------------------------------------------------------------------------

void TestEnumEditor::factory_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QVariant>("matrixPath");
    QTest::addColumn<bool>("editor");
    const QVariant none;
    QTest::newRow("editable") << 0 << true << none << true;
    QTest::newRow("empty matrix path") << 0 << true << QVariant(QString()) << true;
    QTest::newRow("empty matrix text") << 0 << true << QVariant(QStringLiteral("")) << true;
    QTest::newRow("not editable") << 0 << false << none << false;
    QTest::newRow("editing blocked only") << 0x1000 << true << none << true;
    QTest::newRow("no editing in this mode") << 0x1001 << true << none << false;
    // A filter type's editor is another; until it exists the row stays read only.
    QTest::newRow("filter type") << 0 << true << QVariant(QStringLiteral("Job.Filter.Matrix"))
                                 << false;
}

void TestEnumEditor::factory()
{
    QFETCH(int, mode);
    QFETCH(bool, editable);
    QFETCH(QVariant, matrixPath);
    QFETCH(bool, editor);

    std::unique_ptr<WTreePropertyBrowser> browser(new WTreePropertyBrowser(nullptr));
    browser->onProjectModeChanged(mode);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("iIsEditable", editable);
    f.node.setProperty("IDataModFilter.FilterMatrixPath", matrixPath);
    PropertyBrowser::EditorFactories::EnumEditorFactory factory;
    factory.addPropertyManager(f.manager.get());
    QWidget parent;
    std::unique_ptr<QWidget> made(factory.createEditor(f.row, &parent));
    QCOMPARE(made != nullptr, editor);
    if (made) {
        QCOMPARE(QByteArray(made->metaObject()->className()),
                 QByteArray("PropertyBrowser::Editors::EnumEditor"));
        auto* enumEditor = qobject_cast<EnumEditor*>(made.get());
        QVERIFY(enumEditor);
        QCOMPARE(made->parentWidget(), &parent);
        QCOMPARE(EditorPeek::typeOf(*enumEditor), BaseEditor::TypeEnum);
    } else {
        QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    }
}

void TestEnumEditor::factoryRefusesOtherProperties()
{
    PropertyBrowser::EditorFactories::EnumEditorFactory factory;
    QWidget parent;
    QtEnumPropertyManager plainManager;
    factory.addPropertyManager(&plainManager);
    QtProperty* plain = plainManager.addProperty(QStringLiteral("Plain"));
    QVERIFY(!factory.createEditor(plain, &parent));
    EnumPropertyManager manager;
    factory.addPropertyManager(&manager);
    QtProperty* unbound = manager.addProperty(QStringLiteral("Unbound"));
    QVERIFY(!factory.createEditor(unbound, &parent));
    QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    Fixture f(Script::DItem::IoInput);
    factory.addPropertyManager(f.manager.get());
    std::unique_ptr<QWidget> made(factory.createEditor(f.row, &parent));
    QVERIFY(qobject_cast<EnumEditor*>(made.get()));
}

void TestEnumEditor::chosenThroughBrowser()
{
    Settings::WAppSettings::instance()->removeSetting(QStringLiteral("PROPERTY_EDITOR"));
    Script::DItem node(kPath, QStringLiteral("IDataBasicEnum"), Script::DItem::IoNone);
    node.setProperty("IData.Description", QStringLiteral("Mode"));
    node.setProperty("IData.IsGuiVisible", true);
    node.setProperty("iIsEditable", true);
    node.setProperty("IDataBasicEnum.EnumList", kChoices);
    node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Fast"));
    std::unique_ptr<WTreePropertyBrowser> browser(new WTreePropertyBrowser(nullptr));
    browser->resize(400, 300);
    WidgetProperty* row = browser->createPropertyItem(node, true);
    QVERIFY(row);
    QSignalSpy edits(browser.get(), &WTreePropertyBrowser::propertyEdited);
    browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(browser.get()));

    browser->editItem(browser->topLevelItem(row));
    auto* view = browser->findChild<QTreeView*>();
    auto* editor = qobject_cast<EnumEditor*>(view->indexWidget(view->model()->index(0, 1)));
    QVERIFY(editor);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, static_cast<BaseEditor*>(editor));
    auto* box = editor->findChild<QComboBox*>();
    QVERIFY(box);
    QCOMPARE(box->currentIndex(), 0);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(edits.count(), 1);
    ManagerTest::verifyEdit(edits, 0, kPath, Command::SetValue, QStringLiteral("Slow"));
    browser.reset();
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

QTEST_MAIN(TestEnumEditor)
#include "tst_enumeditor.moc"
