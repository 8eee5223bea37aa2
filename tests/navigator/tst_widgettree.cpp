#include "jobfixture.h"
#include "requestrecorder.h"
#include "tabletranslator.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/command.h"
#include "sdk/ditem.h"
#include "sdk/widgetdescriptor.h"

#include "testsupport.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWidget>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSplitter>
#include <QStackedWidget>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

namespace {

const QString kDontBlockMe = QStringLiteral("DONT_BLOCK_ME");
const QString kInvalidCharsMessage
    = QStringLiteral("A module name cannot contain any of the following characters : "
                     "\n\t ? \"  /  \\  <  >  *  |  :  . ");
const QString kEmptyNameMessage = QStringLiteral("Node name cannot be empty!");

std::unique_ptr<WidgetTree> makeTree()
{
    return std::make_unique<WidgetTree>(nullptr, Qt::WindowFlags());
}

WidgetTreeView* viewOf(WidgetTree& widget)
{
    return widget.findChild<WidgetTreeView*>();
}

// Clicks the middle of @p item's row as the user would.
void clickItem(WidgetTreeView* view, QTreeWidgetItem* item)
{
    const QRect rect = view->visualItemRect(item);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}

QLineEdit* openEditor(WidgetTreeView* view)
{
    return view->viewport()->findChild<QLineEdit*>();
}

} // namespace

class TestWidgetTree : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void descriptorListGrowsByOnePerCall()
    {
        std::vector<WidgetModules::WidgetDescriptor*>* first = oWidgetDescriptorList();
        const std::size_t before = first->size();
        std::vector<WidgetModules::WidgetDescriptor*>* second = oWidgetDescriptorList();
        QCOMPARE(second, first);
        QCOMPARE(second->size(), before + 1);
        QVERIFY(before >= 1);
        QCOMPARE(second->at(before), second->at(before - 1));
        QCOMPARE(second->back(), WidgetTree::classDescriptor());
    }

    void descriptorFields()
    {
        const WidgetModules::WidgetDescriptor* descriptor = WidgetTree::classDescriptor();
        QCOMPARE(descriptor->name(), std::string("Navigator"));
        QCOMPARE(descriptor->version().major, 1);
        QCOMPARE(descriptor->version().minor, 0);
        QCOMPARE(descriptor->version().patch, 0);
        QCOMPARE(descriptor->version().build, 22780);
        std::string text;
        descriptor->version() >> text;
        QCOMPARE(text, std::string("1.0.0"));
        QVERIFY(descriptor->createFunction() == &WidgetTree::poCreateInstance);
        QVERIFY(descriptor->destroyFunction() == &WidgetTree::vDestroyInstance);
        QVERIFY(descriptor->icon().isNull());
        QCOMPARE(descriptor->config().dockArea(), Qt::LeftDockWidgetArea);
        QCOMPARE(descriptor->config().bFloatingAtStart(), false);
        QCOMPARE(descriptor->config().bHiddenAtStart(), false);
        QCOMPARE(descriptor->config().bListedInViewMenu(), true);
        QCOMPARE(descriptor->config().bTabbed(), false);
        QCOMPARE(descriptor->config().bFixedSize(), false);
    }

    void createAndDestroyInstance()
    {
        WidgetModules::WidgetInterface* instance = WidgetTree::poCreateInstance();
        auto* widget = dynamic_cast<WidgetTree*>(instance);
        QVERIFY(widget);
        QPointer<WidgetTree> guard(widget);
        QCOMPARE(widget->parentWidget(), nullptr);
        QCOMPARE(widget->objectName(), QStringLiteral("NavigatorWidgetLayout"));
        QCOMPARE(widget->size(), QSize(425, 774));
        QCOMPARE(widget->windowTitle(), QStringLiteral("  Project Window"));
        QCOMPARE(instance->getModuleDescriptor(), WidgetTree::classDescriptor());
        WidgetTree::vDestroyInstance(instance);
        QVERIFY(guard.isNull());
    }

    void registersTheAssistantElementType()
    {
        auto widget = makeTree();
        QCOMPARE(QMetaType::type("QQmlListProperty<Assistant::Element>") != QMetaType::UnknownType,
                 true);
        // The assistants may name the type but not make one.
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import Element 1.0\nElement {}\n", QUrl());
        QVERIFY(component.isError());
        QVERIFY2(component.errorString().contains(
                     QStringLiteral("Element type object cannot be created.")),
                 qPrintable(component.errorString()));
    }

    void copyText_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("ioType");
        QTest::addColumn<bool>("notAvailable");
        QTest::addColumn<bool>("error");
        QTest::addColumn<bool>("linkError");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");

        const QByteArray number("IDataNumeric.DynamicValue");
        QTest::newRow("output not available") << "IDataBasicInt" << 2 << true << false << false
                                              << number << QVariant(5) << "Not Available";
        QTest::newRow("output not available and in error: not available")
            << "IDataBasicInt" << 2 << true << true << false << number << QVariant(5)
            << "Not Available";
        QTest::newRow("output in error") << "IDataBasicDouble" << 2 << false << true << false
                                         << number << QVariant(1.5) << "Error";
        QTest::newRow("input with a link error")
            << "IDataBasicString" << 1 << false << false << true
            << QByteArray("IDataBasicString.DynamicValue") << QVariant("x") << "Error";
        QTest::newRow("input in error state shows its value")
            << "IDataBasicInt" << 1 << true << true << false << number << QVariant(7) << "7";
        QTest::newRow("output with a link error shows its value")
            << "IDataBasicInt" << 2 << false << false << true << number << QVariant(8) << "8";
        QTest::newRow("bool") << "IDataBasicBool" << 0 << false << false << false
                              << QByteArray("IDataBasicBool.DynamicValue") << QVariant(true)
                              << "true";
        QTest::newRow("double, four decimals") << "IDataBasicDouble" << 0 << false << false << false
                                               << number << QVariant(1234.56789) << "1234.5679";
        QTest::newRow("int") << "IDataBasicInt" << 1 << false << false << false << number
                             << QVariant(-42) << "-42";
        QTest::newRow("int64") << "IDataBasicInt64" << 1 << false << false << false << number
                               << QVariant(qlonglong(-9223372036854775807LL - 1))
                               << "-9223372036854775808";
        QTest::newRow("string") << "IDataBasicString" << 0 << false << false << false
                                << QByteArray("IDataBasicString.DynamicValue") << QVariant("a\tb")
                                << "a\tb";
        QTest::newRow("enum copies nothing")
            << "IDataBasicEnum" << 0 << false << false << false
            << QByteArray("IDataBasicEnum.DynamicStringnifiedValue") << QVariant("On") << "";
        QTest::newRow("missing value") << "IDataBasicDouble" << 0 << false << false << false
                                       << QByteArray("Other") << QVariant(1) << "0.0000";
    }

    void copyText()
    {
        QFETCH(QString, type);
        QFETCH(int, ioType);
        QFETCH(bool, notAvailable);
        QFETCH(bool, error);
        QFETCH(bool, linkError);
        QFETCH(QByteArray, key);
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        Script::DItem node(QStringLiteral("Job.Module.Node"), type, Script::DItem::IoType(ioType));
        node.setInitialized(notAvailable);
        node.setErrorState(error);
        node.setLinkError(linkError);
        node.setProperty(key.constData(), value);
        QCOMPARE(WidgetTree::extractStringFromBasicNode(node), text);
    }

    void basicTypes_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("basic");
        for (const char* type : {"IDataBasicBool", "IDataBasicDouble", "IDataBasicInt",
                                 "IDataBasicInt64", "IDataBasicString"})
            QTest::newRow(type) << QString::fromLatin1(type) << true;
        QTest::newRow("enumerations are not") << "IDataBasicEnum" << false;
        QTest::newRow("exact case only") << "IDataBasicint" << false;
        QTest::newRow("images are not") << "IDataImage" << false;
    }

    void basicTypes()
    {
        QFETCH(QString, type);
        QFETCH(bool, basic);
        const Script::DItem node(QStringLiteral("Job.Node"), type);
        QCOMPARE(WidgetTree::nodeIsBasicType(node), basic);
    }

    void destroyNullDoesNothing()
    {
        auto widget = makeTree();
        const QStringList before = TestSupport::liveTopLevelWidgets();
        WidgetTree::vDestroyInstance(nullptr);
        WidgetTree::classDescriptor()->vDestroyInstance(nullptr);
        QCOMPARE(TestSupport::liveTopLevelWidgets(), before);
    }

    void formWidgets_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("parentName");
        QTest::newRow("splitter") << "splitter"
                                  << "QSplitter"
                                  << "NavigatorWidgetLayout";
        QTest::newRow("treePlaceHolder") << "treePlaceHolder"
                                         << "QFrame"
                                         << "splitter";
        QTest::newRow("stack") << "editorAssistantPlaceHolder"
                               << "QStackedWidget"
                               << "splitter";
        QTest::newRow("editorWidget") << "editorWidget"
                                      << "QWidget"
                                      << "editorAssistantPlaceHolder";
        QTest::newRow("startAssistantQML") << "startAssistantQML"
                                           << "QQuickWidget"
                                           << "editorWidget";
        QTest::newRow("propEditorPlaceHolder") << "propEditorPlaceHolder"
                                               << "QFrame"
                                               << "editorWidget";
        QTest::newRow("assistantPlaceHolder") << "assistantPlaceHolder"
                                              << "QWidget"
                                              << "editorAssistantPlaceHolder";
        QTest::newRow("scrollArea") << "scrollArea"
                                    << "QScrollArea"
                                    << "assistantPlaceHolder";
        QTest::newRow("welcomePlaceHolder") << "welcomePlaceHolder"
                                            << "QWidget"
                                            << "editorAssistantPlaceHolder";
        QTest::newRow("scrollArea_2") << "scrollArea_2"
                                      << "QScrollArea"
                                      << "welcomePlaceHolder";
        QTest::newRow("welcomeContents") << "scrollAreaWidgetContents_2"
                                         << "QWidget"
                                         << "qt_scrollarea_viewport";
        QTest::newRow("welcomeAssistant") << "welcomeAssistant"
                                          << "QQuickWidget"
                                          << "scrollAreaWidgetContents_2";
    }

    void formWidgets()
    {
        QFETCH(QString, name);
        QFETCH(QString, className);
        QFETCH(QString, parentName);
        auto widget = makeTree();
        auto* child = widget->findChild<QWidget*>(name);
        QVERIFY2(child, qPrintable(name));
        QVERIFY(child->inherits(className.toLatin1().constData()));
        QCOMPARE(child->parentWidget()->objectName(), parentName);
    }

    void formLayouts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("ownerName");
        QTest::addColumn<int>("spacing");
        QTest::newRow("verticalLayout_3") << "verticalLayout_3"
                                          << "QVBoxLayout"
                                          << "NavigatorWidgetLayout" << 0;
        QTest::newRow("horizontalLayout_3") << "horizontalLayout_3"
                                            << "QHBoxLayout"
                                            << "treePlaceHolder" << 0;
        QTest::newRow("verticalLayout") << "verticalLayout"
                                        << "QVBoxLayout"
                                        << "editorWidget" << 2;
        QTest::newRow("horizontalLayout_5") << "horizontalLayout_5"
                                            << "QHBoxLayout"
                                            << "propEditorPlaceHolder" << 2;
        QTest::newRow("verticalLayout_2") << "verticalLayout_2"
                                          << "QVBoxLayout"
                                          << "assistantPlaceHolder" << 2;
        QTest::newRow("hboxLayout") << "hboxLayout"
                                    << "QHBoxLayout"
                                    << "welcomePlaceHolder" << 2;
        QTest::newRow("verticalLayout_4") << "verticalLayout_4"
                                          << "QVBoxLayout"
                                          << "scrollAreaWidgetContents_2" << 2;
    }

    void formLayouts()
    {
        QFETCH(QString, name);
        QFETCH(QString, className);
        QFETCH(QString, ownerName);
        QFETCH(int, spacing);
        auto widget = makeTree();
        auto* layout = widget->findChild<QLayout*>(name);
        QVERIFY2(layout, qPrintable(name));
        QVERIFY(layout->inherits(className.toLatin1().constData()));
        QCOMPARE(layout->parentWidget()->objectName(), ownerName);
        QCOMPARE(layout->spacing(), spacing);
        QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(layout->sizeConstraint(), QLayout::SetDefaultConstraint);
    }

    void formSettings()
    {
        auto widget = makeTree();
        auto* splitter = widget->findChild<QSplitter*>(QStringLiteral("splitter"));
        QCOMPARE(splitter->orientation(), Qt::Vertical);
        QCOMPARE(splitter->childrenCollapsible(), false);

        auto* treeHolder = widget->findChild<QFrame*>(QStringLiteral("treePlaceHolder"));
        QCOMPARE(treeHolder->frameShape(), QFrame::NoFrame);
        QCOMPARE(treeHolder->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(treeHolder->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(treeHolder->sizePolicy().verticalStretch(), 1);

        auto* stack
            = widget->findChild<QStackedWidget*>(QStringLiteral("editorAssistantPlaceHolder"));
        QCOMPARE(stack->frameShape(), QFrame::NoFrame);
        QCOMPARE(stack->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(stack->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(stack->sizePolicy().verticalStretch(), 7);
        QCOMPARE(stack->count(), 3);
        QCOMPARE(stack->widget(0)->objectName(), QStringLiteral("editorWidget"));
        QCOMPARE(stack->widget(1)->objectName(), QStringLiteral("assistantPlaceHolder"));
        QCOMPARE(stack->widget(2)->objectName(), QStringLiteral("welcomePlaceHolder"));
        QCOMPARE(stack->currentIndex(), 0);

        auto* start = widget->findChild<QQuickWidget*>(QStringLiteral("startAssistantQML"));
        QCOMPARE(start->minimumSize(), QSize(0, 50));
        QCOMPARE(start->maximumSize(), QSize(16777215, 50));
        QCOMPARE(start->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(start->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
        QCOMPARE(start->resizeMode(), QQuickWidget::SizeRootObjectToView);
        QCOMPARE(start->source(),
                 QUrl(QStringLiteral("qrc:/resources/qml/StartAssistantComponent.qml")));

        auto* editorHolder = widget->findChild<QFrame*>(QStringLiteral("propEditorPlaceHolder"));
        QCOMPARE(editorHolder->frameShape(), QFrame::NoFrame);
        QCOMPARE(editorHolder->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(editorHolder->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);

        auto* scrollArea = widget->findChild<QScrollArea*>(QStringLiteral("scrollArea"));
        QVERIFY(scrollArea->widgetResizable());
        auto* assistant = qobject_cast<QQuickWidget*>(scrollArea->widget());
        QVERIFY(assistant);
        QCOMPARE(assistant->resizeMode(), QQuickWidget::SizeRootObjectToView);
        QVERIFY(!widget->findChild<QWidget*>(QStringLiteral("scrollAreaWidgetContents")));

        auto* welcomeArea = widget->findChild<QScrollArea*>(QStringLiteral("scrollArea_2"));
        QCOMPARE(welcomeArea->minimumWidth(), 380);
        QVERIFY(welcomeArea->widgetResizable());
        auto* welcome = widget->findChild<QQuickWidget*>(QStringLiteral("welcomeAssistant"));
        QCOMPARE(welcome->minimumSize(), QSize(360, 500));
        QCOMPARE(welcome->resizeMode(), QQuickWidget::SizeRootObjectToView);
        QCOMPARE(welcome->source(),
                 QUrl(QStringLiteral("qrc:/resources/qml/WelcomeAssistant.qml")));
    }

    void treeSettings()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        QVERIFY(view);
        auto* holder = widget->findChild<QFrame*>(QStringLiteral("treePlaceHolder"));
        QCOMPARE(view->parentWidget(), holder);
        QVERIFY(holder->layout()->indexOf(view) >= 0);
        QCOMPARE(view->iconSize(), QSize(24, 48));
        QVERIFY(view->isAnimated());
        QVERIFY(view->isHeaderHidden());
        QVERIFY(view->viewport()->acceptDrops());
        QVERIFY(view->showDropIndicator());
    }

    void addModuleItemContent()
    {
        auto widget = makeTree();
        QTreeWidgetItem* item = widget->poAddModuleItem();
        QCOMPARE(item->type(), 0);
        QCOMPARE(item->text(0), QStringLiteral("Add Module"));
        QCOMPARE(item->data(0, WidgetTreeView::AddModuleItemRole).toString(),
                 QStringLiteral("AddModuleItem"));
        QVERIFY(!item->icon(0).isNull());
        QCOMPARE(item->treeWidget(), nullptr);
    }

    void cleanupKeepsAddModuleRow()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        view->addTopLevelItem(widget->poAddModuleItem());
        widget->cleanup();
        QCOMPARE(view->topLevelItemCount(), 0);
        QCOMPARE(widget->poAddModuleItem()->treeWidget(), nullptr);
        QCOMPARE(widget->poAddModuleItem()->text(0), QStringLiteral("Add Module"));
    }

    void slotRequests_data()
    {
        QTest::addColumn<QByteArray>("slot");
        QTest::addColumn<bool>("withPath");
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("key");
        QTest::addColumn<QVariant>("reply");
        const QVariant none;
        QTest::newRow("link clicked") << QByteArray("vLinkClicked") << true << 36 << 953 << none;
        QTest::newRow("data refresh")
            << QByteArray("requestDataRefresh") << true << 43 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("save to file")
            << QByteArray("requestSaveToFile") << true << 563 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("load from file")
            << QByteArray("requestLoadFromFile") << true << 564 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("unload file")
            << QByteArray("requestUnloadFile") << true << 565 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("tool box") << QByteArray("showToolBox") << false << 50 << -1 << none;
        QTest::newRow("tool tip") << QByteArray("onDisplayToolTip") << false << 51 << -1 << none;
    }

    void slotRequests()
    {
        QFETCH(QByteArray, slot);
        QFETCH(bool, withPath);
        QFETCH(int, id);
        QFETCH(int, key);
        QFETCH(QVariant, reply);
        auto widget = makeTree();
        RequestRecorder host(widget.get());
        const QString path = QStringLiteral("Module Application.Camera.Exposure");
        if (withPath)
            QVERIFY(
                QMetaObject::invokeMethod(widget.get(), slot.constData(), Q_ARG(QString, path)));
        else
            QVERIFY(QMetaObject::invokeMethod(widget.get(), slot.constData()));
        QCOMPARE(host.requests().size(), 1);
        const RecordedRequest& request = host.requests().first();
        QCOMPARE(request.category, 0);
        QCOMPARE(request.id, id);
        QCOMPARE(request.waitOn, WaitOnReply);
        QCOMPARE(request.timeout, 25000);
        QCOMPARE(request.reply, reply);
        if (key < 0) {
            QVERIFY(request.params.isEmpty());
        } else {
            QCOMPARE(request.params.size(), 1);
            QCOMPARE(request.params.first().second, key);
            QCOMPARE(request.params.first().first, QVariant(path));
        }
    }

    void propertyEditPassesUnchanged_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QVariant>("params");
        QTest::newRow("no command") << 0 << QVariant();
        QTest::newRow("set link") << 1 << QVariant(QStringLiteral("Module Application.A.Out"));
        QTest::newRow("clear link") << 1 << QVariant(QString());
        QTest::newRow("reserved") << 2 << QVariant(7);
        QTest::newRow("select link") << 3 << QVariant(QStringLiteral("Image.Red"));
        QTest::newRow("set value") << 4 << QVariant(42);
        QVariantMap limits;
        limits.insert(QStringLiteral("Min"), 1.5);
        limits.insert(QStringLiteral("Max"), 9.5);
        QTest::newRow("set limits") << 5 << QVariant(limits);
    }

    void propertyEditPassesUnchanged()
    {
        QFETCH(int, command);
        QFETCH(QVariant, params);
        auto widget = makeTree();
        RequestRecorder host(widget.get());
        const QString path = QStringLiteral("Module Application.Camera.Gain");
        const auto cmd = static_cast<VardeenDefs::PropertyEditor::Command>(command);
        QVERIFY(QMetaObject::invokeMethod(widget.get(), "vNodePropertyEdited", Q_ARG(QString, path),
                                          Q_ARG(VardeenDefs::PropertyEditor::Command, cmd),
                                          Q_ARG(QVariant, params), Q_ARG(bool, false)));
        QCOMPARE(host.requests().size(), 1);
        const RecordedRequest& request = host.requests().first();
        QCOMPARE(request.category, 0);
        QCOMPARE(request.id, 34);
        QCOMPARE(request.reply, QVariant(kDontBlockMe));
        QCOMPARE(request.params.size(), 1);
        QCOMPARE(request.params.first().second, 953);
        const QVariantList expected {path, command, params, false};
        QCOMPARE(request.params.first().first.toList(), expected);
    }

    void editingStateNesting_data()
    {
        QTest::addColumn<QList<bool>>("calls");
        QTest::addColumn<QList<int>>("ids");
        QTest::newRow("single") << QList<bool> {true, false} << QList<int> {39, 40};
        QTest::newRow("nested") << QList<bool> {true, true, false, false}
                                << QList<int> {39, -1, -1, 40};
        QTest::newRow("below zero")
            << QList<bool> {false, true, true, false} << QList<int> {-1, -1, 39, 40};
    }

    void editingStateNesting()
    {
        QFETCH(QList<bool>, calls);
        QFETCH(QList<int>, ids);
        auto widget = makeTree();
        RequestRecorder host(widget.get());
        for (bool editing : calls)
            QVERIFY(
                QMetaObject::invokeMethod(widget.get(), "setEditingState", Q_ARG(bool, editing)));
        QCOMPARE(host.ids(), ids);
        for (const RecordedRequest& request : host.requests()) {
            QCOMPARE(request.category, 0);
            QVERIFY(request.params.isEmpty());
            QCOMPARE(request.reply, QVariant(kDontBlockMe));
        }
    }

    void selectionSendsRequest9()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        view->expandAll();
        QVERIFY(showActive(*widget));
        RequestRecorder host(widget.get());
        clickItem(view, camera);
        QCOMPARE(host.ids(), QList<int> {9});
        const RecordedRequest& request = host.requests().first();
        QCOMPARE(request.category, 0);
        QVERIFY(request.params.isEmpty());
        QVERIFY(!request.reply.isValid());
        QCOMPARE(widget->selectedTreeItems(), QList<QTreeWidgetItem*> {camera});
        widget->clearTreeSelection();
        QVERIFY(widget->selectedTreeItems().isEmpty());
    }

    void selectingAddModuleRowSendsNothing()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        view->addTopLevelItem(widget->poAddModuleItem());
        view->expandAll();
        QVERIFY(showActive(*widget));
        RequestRecorder host(widget.get());
        // A click on the row asks for the tool box; the keys select it.
        view->setCurrentItem(camera);
        host.clear();
        QTest::keyClick(view, Qt::Key_Down);
        QVERIFY(widget->poAddModuleItem()->isSelected());
        QVERIFY(host.requests().isEmpty());
        clickItem(view, camera);
        QCOMPARE(host.ids(), QList<int> {9});
    }

    void findItem_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expectedText");
        QTest::newRow("empty path") << QString() << QString();
        QTest::newRow("module") << "Module Application.Camera"
                                << "Camera";
        QTest::newRow("nested node") << "Module Application.Camera.Exposure"
                                     << "Exposure";
        QTest::newRow("root") << "Module Application"
                              << "Module Application";
        QTest::newRow("only on a phantom row") << "Module Application.Preview" << QString();
        QTest::newRow("unknown") << "Module Application.Nothing" << QString();
    }

    void findItem()
    {
        QFETCH(QString, path);
        QFETCH(QString, expectedText);
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        job.add(camera, QStringLiteral("Module Application.Camera.Exposure"));
        QTreeWidgetItem* phantom
            = job.add(job.rootItem(), QStringLiteral("Module Application.Preview"));
        phantom->setData(0, WidgetTreeView::PhantomRole, QStringLiteral("Phantom"));
        // A row whose node has an empty path: an empty search must not reach it.
        job.add(job.rootItem(), QString());
        view->addTopLevelItem(widget->poAddModuleItem());
        QTreeWidgetItem* found = widget->poFindItem(path);
        if (expectedText.isEmpty()) {
            QCOMPARE(found, nullptr);
        } else {
            QVERIFY(found);
            QCOMPARE(found->text(0), expectedText);
        }
    }

    void retranslateTreeUsesNodeNames()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        QTreeWidgetItem* exposure
            = job.add(camera, QStringLiteral("Module Application.Camera.Exposure"));
        auto* label = new QTreeWidgetItem(camera);
        label->setText(0, QStringLiteral("no node"));
        QTreeWidgetItem* below
            = job.add(exposure, QStringLiteral("Module Application.Camera.Exposure.Auto"));
        TableTranslator translator;
        translator.add(QStringLiteral("IData"), QStringLiteral("Camera"), QStringLiteral("Kamera"));
        translator.add(QStringLiteral("IData"), QStringLiteral("Auto"), QStringLiteral("Selbst"));
        QCoreApplication::installTranslator(&translator);
        widget->retranslateTree(job.rootItem());
        widget->retranslateTree(nullptr);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(camera->text(0), QStringLiteral("Kamera"));
        QCOMPARE(camera->toolTip(0), QStringLiteral("Kamera"));
        QCOMPARE(exposure->text(0), QStringLiteral("Exposure"));
        QCOMPARE(exposure->toolTip(0), QStringLiteral("Exposure"));
        QCOMPARE(label->text(0), QStringLiteral("no node"));
        QCOMPARE(below->text(0), QStringLiteral("Selbst"));
    }

    void languageChangeRetranslates()
    {
        QDockWidget dock;
        auto* widget = new WidgetTree(&dock, Qt::WindowFlags());
        dock.setWidget(widget);
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        QSignalSpy retranslated(widget, &WidgetTree::retranslate);
        TableTranslator translator;
        translator.add(QStringLiteral("NavigatorWidgetLayout"), QStringLiteral("  Project Window"),
                       QStringLiteral("  Projektfenster"));
        translator.add(QStringLiteral("QObject"), QStringLiteral("Job Tree"),
                       QStringLiteral("Auftragsbaum"));
        translator.add(QStringLiteral("QObject"), QStringLiteral("Add Module"),
                       QStringLiteral("Modul hinzufügen"));
        translator.add(QStringLiteral("IData"), QStringLiteral("Camera"), QStringLiteral("Kamera"));
        translator.add(QStringLiteral("StartAssistantComponent"), QStringLiteral("Start Assistant"),
                       QStringLiteral("Assistent starten"));
        QCoreApplication::installTranslator(&translator);
        QTRY_VERIFY(retranslated.count() >= 1);
        QCOMPARE(widget->windowTitle(), QStringLiteral("  Projektfenster"));
        QCOMPARE(dock.windowTitle(), QStringLiteral("Auftragsbaum"));
        QCOMPARE(widget->poAddModuleItem()->text(0), QStringLiteral("Modul hinzufügen"));
        QCOMPARE(camera->text(0), QStringLiteral("Kamera"));
        auto* start = widget->findChild<QQuickWidget*>(QStringLiteral("startAssistantQML"));
        QObject* button
            = start->rootObject()->findChild<QObject*>(QStringLiteral("showAssistantBtn"));
        QCOMPARE(button->property("text").toString(), QStringLiteral("Assistent starten"));
        QCoreApplication::removeTranslator(&translator);
        QTRY_COMPARE(widget->windowTitle(), QStringLiteral("  Project Window"));
        QCOMPARE(button->property("text").toString(), QStringLiteral("Start Assistant"));
    }

    void languageChangeWithoutQmlRoot()
    {
        auto widget = makeTree();
        for (QQuickWidget* page : widget->findChildren<QQuickWidget*>())
            page->setSource(QUrl());
        for (QQuickWidget* page : widget->findChildren<QQuickWidget*>())
            QVERIFY(!page->rootObject());
        QSignalSpy retranslated(widget.get(), &WidgetTree::retranslate);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(widget.get(), &change);
        QCOMPARE(retranslated.count(), 1);
    }

    void parentFeatures_data()
    {
        QTest::addColumn<bool>("directChild");
        QTest::addColumn<int>("features");
        QTest::addColumn<int>("expected");
        QTest::newRow("none") << true << 0 << 0;
        QTest::newRow("all") << true << 7 << 7;
        QTest::newRow("not in a dock") << false << 0 << 7;
    }

    void parentFeatures()
    {
        QFETCH(bool, directChild);
        QFETCH(int, features);
        QFETCH(int, expected);
        QDockWidget dock;
        dock.setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable
                         | QDockWidget::DockWidgetFloatable);
        auto* holder = new QWidget;
        dock.setWidget(holder);
        auto* widget = new WidgetTree(directChild ? static_cast<QWidget*>(&dock) : holder,
                                      Qt::WindowFlags());
        widget->setParentFeatures(QDockWidget::DockWidgetFeatures(features));
        QCOMPARE(int(dock.features()), expected);
    }

    void bInvalidItemName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("invalid");
        const QString forbidden = QStringLiteral("?\"\\/<>*|:.");
        for (const QChar c : forbidden)
            QTest::addRow("with %c", c.toLatin1()) << (QStringLiteral("Cam") + c + "era") << true;
        QTest::newRow("plain") << "Camera" << false;
        QTest::newRow("blanks and digits") << "Camera 5c x00" << false;
        QTest::newRow("dash and underscore") << "Cam-era_2" << false;
        QTest::newRow("empty") << "" << false;
    }

    void bInvalidItemName()
    {
        QFETCH(QString, name);
        QFETCH(bool, invalid);
        QCOMPARE(::bInvalidItemName(name), invalid);
    }

    void renameSendsItemAddress()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        JobFixture::nodeOf(camera)->setRenamingAllowed(true);
        view->expandAll();
        QVERIFY(showActive(*widget));
        view->setCurrentItem(camera);
        RequestRecorder host(widget.get());
        // The view's rename signal, as the F2 key sends it.
        QVERIFY(QMetaObject::invokeMethod(view, "doEditModule"));
        QLineEdit* editor = openEditor(view);
        QVERIFY(editor);
        QCOMPARE(gSelectedTreeItem, camera);
        QVERIFY(camera->flags() & Qt::ItemIsEditable);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("Sensor"));
        // The delegate commits a Return once the line edit has seen it.
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(host.ids(), (QList<int> {39, 40, 522}));
        const RecordedRequest& rename = host.requests().last();
        QCOMPARE(rename.category, 500);
        QCOMPARE(rename.params.size(), 1);
        QCOMPARE(rename.params.first().second, 953);
        const QVariantList address {static_cast<qint64>(reinterpret_cast<quintptr>(camera))};
        QCOMPARE(rename.params.first().first.toList(), address);
        QCOMPARE(camera->text(0), QStringLiteral("Sensor"));
        QCOMPARE(gSelectedTreeItem, nullptr);
    }

    void refusedNameReopensEditor_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        QTest::newRow("blanks only") << "   " << kEmptyNameMessage;
        QTest::newRow("full stop") << "Cam.era" << kInvalidCharsMessage;
        QTest::newRow("slash") << "Cam/era" << kInvalidCharsMessage;
        QTest::newRow("colon") << "Cam:era" << kInvalidCharsMessage;
        QTest::newRow("question mark") << "Camera?" << kInvalidCharsMessage;
    }

    void refusedNameReopensEditor()
    {
        QFETCH(QString, name);
        QFETCH(QString, message);
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        JobFixture::nodeOf(camera)->setRenamingAllowed(true);
        view->expandAll();
        QVERIFY(showActive(*widget));
        view->setCurrentItem(camera);
        RequestRecorder host(widget.get());
        QVERIFY(QMetaObject::invokeMethod(widget.get(), "renameCurrentItem"));
        QLineEdit* editor = openEditor(view);
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, name);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(host.ids(), (QList<int> {39, 40}));
        QCOMPARE(camera->text(0), QString());
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), message);
        // The refused editor goes later; the reopened one stays.
        QTRY_COMPARE(view->viewport()->findChildren<QLineEdit*>().size(), 1);
        QLineEdit* reopened = openEditor(view);
        QVERIFY(reopened);
        QCOMPARE(reopened->text(), QString());
        QTest::keyClicks(reopened, QStringLiteral("Sensor"));
        QTest::keyClick(reopened, Qt::Key_Return);
        QTRY_COMPARE(host.ids(), (QList<int> {39, 40, 522}));
        QCOMPARE(camera->text(0), QStringLiteral("Sensor"));
    }

    void renameRefusedByNode()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        view->expandAll();
        QVERIFY(showActive(*widget));
        view->setCurrentItem(camera);
        RequestRecorder host(widget.get());
        QVERIFY(QMetaObject::invokeMethod(widget.get(), "renameCurrentItem"));
        QCOMPARE(openEditor(view), nullptr);
        QVERIFY(host.requests().isEmpty());
        QVERIFY(!(camera->flags() & Qt::ItemIsEditable));
    }

    void renameClosedWithoutChangeKeepsItem()
    {
        auto widget = makeTree();
        WidgetTreeView* view = viewOf(*widget);
        JobFixture job(view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        JobFixture::nodeOf(camera)->setRenamingAllowed(true);
        view->expandAll();
        QVERIFY(showActive(*widget));
        view->setCurrentItem(camera);
        RequestRecorder host(widget.get());
        QVERIFY(QMetaObject::invokeMethod(widget.get(), "renameCurrentItem"));
        QLineEdit* editor = openEditor(view);
        QVERIFY(editor);
        QTest::keyClick(editor, Qt::Key_Escape);
        QCOMPARE(gSelectedTreeItem, camera);
        QCOMPARE(camera->text(0), QStringLiteral("Camera"));
        QCOMPARE(host.ids(), (QList<int> {39, 522}));
        gSelectedTreeItem = nullptr;
    }

private:
    static bool showActive(QWidget& widget)
    {
        widget.show();
        QApplication::setActiveWindow(&widget);
        return QTest::qWaitForWindowActive(&widget);
    }
};

QTEST_MAIN(TestWidgetTree)
#include "tst_widgettree.moc"
