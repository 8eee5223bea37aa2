#include "jobfixture.h"
#include "requestrecorder.h"

#include "editors/baseeditor.h"
#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtabstracteditorfactory.h"
#include "qtbrowseritem.h"
#include "sdk/ditem.h"
#include "sdk/visibilityinfo.h"

#include "testsupport.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFrame>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QTest>

#include <memory>

// The dock's slot takes the row's item; the slot is invoked by name here.
Q_DECLARE_METATYPE(QtBrowserItem*)

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;

namespace {

const QString kDontBlockMe = QStringLiteral("DONT_BLOCK_ME");
const QString kPath = QStringLiteral("Module Application.Camera.Exposure");

std::unique_ptr<WidgetTree> makeTree()
{
    return std::make_unique<WidgetTree>(nullptr, Qt::WindowFlags());
}

WTreePropertyBrowser* browserOf(WidgetTree& widget)
{
    return widget.findChild<WTreePropertyBrowser*>();
}

/// An editor that only records what the browser asks of it.
class LinkRecordingEditor : public PropertyBrowser::Editors::BaseEditor
{
public:
    LinkRecordingEditor(QWidget* parent, WidgetProperty* row, QStringList& links)
        : BaseEditor(parent, row, TypeInt)
        , m_rLinks(links)
    { }
    void showLinkWidget(QString path) override { m_rLinks.append(path); }
    void readData() override { }

private:
    QStringList& m_rLinks;
};

/// Gives every integer row a LinkRecordingEditor.
class LinkRecordingFactory : public QtAbstractEditorFactory<QtIntPropertyManager>
{
public:
    explicit LinkRecordingFactory(QStringList& links)
        : QtAbstractEditorFactory<QtIntPropertyManager>(nullptr)
        , m_rLinks(links)
    { }

protected:
    void connectPropertyManager(QtIntPropertyManager*) override { }
    void disconnectPropertyManager(QtIntPropertyManager*) override { }
    QWidget* createEditor(QtIntPropertyManager*, QtProperty* property, QWidget* parent) override
    {
        return new LinkRecordingEditor(parent, dynamic_cast<WidgetProperty*>(property), m_rLinks);
    }

private:
    QStringList& m_rLinks;
};

} // namespace

/// The property tree's place in the dock: its mounting, its signals turned into requests, and
/// the dock's calls into it.
class TestWidgetTreeBrowser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        PropertyBrowser::WidgetProperty::m_ErrorDescription = [](int) {
            return std::string();
        };
    }

    void cleanup() { QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void browserIsMountedBelowTheTree()
    {
        auto widget = makeTree();
        WTreePropertyBrowser* browser = browserOf(*widget);
        QVERIFY(browser);
        QCOMPARE(WTreePropertyBrowser::me, browser);
        QCOMPARE(browser->parentWidget(), widget->findChild<QFrame*>("propEditorPlaceHolder"));
        QCOMPARE(widget->findChild<QFrame*>("propEditorPlaceHolder")->layout()->indexOf(browser),
                 0);
        widget.reset();
        QVERIFY(!WTreePropertyBrowser::me);
    }

    void browserSignalsBecomeRequests_data()
    {
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("key");
        QTest::addColumn<QVariant>("reply");
        QTest::newRow("link clicked") << QByteArray("linkClicked") << 36 << 953 << QVariant();
        QTest::newRow("data refresh")
            << QByteArray("refreshData") << 43 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("save to file")
            << QByteArray("requestSaveToFile") << 563 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("load from file")
            << QByteArray("requestLoadFromFile") << 564 << 956 << QVariant(kDontBlockMe);
        QTest::newRow("unload file")
            << QByteArray("requestUnloadFile") << 565 << 956 << QVariant(kDontBlockMe);
    }

    void browserSignalsBecomeRequests()
    {
        QFETCH(QByteArray, signal);
        QFETCH(int, id);
        QFETCH(int, key);
        QFETCH(QVariant, reply);
        auto widget = makeTree();
        RequestRecorder host(widget.get());
        QVERIFY(QMetaObject::invokeMethod(browserOf(*widget), signal.constData(),
                                          Q_ARG(QString, kPath)));
        QCOMPARE(host.ids(), QList<int> {id});
        const RecordedRequest& request = host.requests().first();
        QCOMPARE(request.reply, reply);
        QCOMPARE(request.params.size(), 1);
        QCOMPARE(request.params.first().second, key);
        QCOMPARE(request.params.first().first, QVariant(kPath));
    }

    void anEditOfARowBecomesRequest34()
    {
        auto widget = makeTree();
        RequestRecorder host(widget.get());
        Script::DItem node(kPath, QStringLiteral("IDataBasicInt"), Script::DItem::IoInput);
        WidgetProperty* row = browserOf(*widget)->createPropertyItem(node, true);
        auto* manager
            = dynamic_cast<PropertyBrowser::Managers::IntPropertyManager*>(row->propertyManager());
        QVERIFY(manager);
        manager->setValue(row, 42);
        QCOMPARE(host.ids(), QList<int> {34});
        const QVariantList expected {kPath, int(VardeenDefs::PropertyEditor::SetValue), 42, false};
        QCOMPARE(host.requests().first().params.first().first.toList(), expected);
        QCOMPARE(host.requests().first().reply, QVariant(kDontBlockMe));
        browserOf(*widget)->clear();
    }

    void editingStateComesFromTheBrowser()
    {
        auto widget = makeTree();
        RequestRecorder host(widget.get());
        WTreePropertyBrowser* browser = browserOf(*widget);
        QVERIFY(QMetaObject::invokeMethod(browser, "editing", Q_ARG(bool, true)));
        QVERIFY(QMetaObject::invokeMethod(browser, "editing", Q_ARG(bool, false)));
        QCOMPARE(host.ids(), (QList<int> {39, 40}));
    }

    void selectingAddModuleClearsTheBrowser()
    {
        auto widget = makeTree();
        WidgetTreeView* view = widget->findChild<WidgetTreeView*>();
        JobFixture job(view);
        view->addTopLevelItem(widget->poAddModuleItem());
        Script::DItem node(kPath, QStringLiteral("IDataBasicInt"), Script::DItem::IoInput);
        WTreePropertyBrowser* browser = browserOf(*widget);
        browser->createPropertyItem(node, true);
        QCOMPARE(browser->topLevelItems().size(), 1);
        RequestRecorder host(widget.get());
        view->setCurrentItem(widget->poAddModuleItem());
        QVERIFY(browser->topLevelItems().isEmpty());
        QVERIFY(!browser->propertyExists(kPath));
        QVERIFY(host.requests().isEmpty());
    }

    void leftPressOpensTheRowsEditor_data()
    {
        QTest::addColumn<int>("pressed");
        QTest::addColumn<int>("editors");
        QTest::newRow("left") << int(Qt::LeftButton) << 1;
        QTest::newRow("middle") << int(Qt::MiddleButton) << 0;
    }

    void leftPressOpensTheRowsEditor()
    {
        QFETCH(int, pressed);
        const auto button = static_cast<Qt::MouseButton>(pressed);
        QFETCH(int, editors);
        auto widget = makeTree();
        WTreePropertyBrowser* browser = browserOf(*widget);
        Script::DItem node(kPath, QStringLiteral("IDataBasicInt"), Script::DItem::IoInput);
        WidgetProperty* row = browser->createPropertyItem(node, true);
        QStringList links;
        LinkRecordingFactory factory(links);
        browser->setFactoryForManager<QtIntPropertyManager>(
            static_cast<QtIntPropertyManager*>(row->propertyManager()), &factory);
        widget->show();
        QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
        auto* view = browser->findChild<QAbstractItemView*>();
        const QModelIndex value = view->model()->index(0, 1);
        QTest::mousePress(view->viewport(), button, {}, view->visualRect(value).center());
        QCOMPARE(view->findChildren<LinkRecordingEditor*>().size(), editors);
        QTest::mouseRelease(view->viewport(), button, {}, view->visualRect(value).center());
        QVERIFY(links.isEmpty());
        browser->clear();
        QTRY_VERIFY(view->findChildren<LinkRecordingEditor*>().isEmpty());
    }

    void mouseEventWithoutItemDoesNothing_data()
    {
        QTest::addColumn<int>("button");
        QTest::newRow("left") << int(Qt::LeftButton);
        QTest::newRow("right") << int(Qt::RightButton);
    }

    void mouseEventWithoutItemDoesNothing()
    {
        QFETCH(int, button);
        const auto pressed = static_cast<Qt::MouseButton>(button);
        // In the expert view a right press on a row would open the row's menu.
        ItemVisibility::VisibilityInfo* visibility = ItemVisibility::VisibilityInfo::instance();
        visibility->setVisibilityMode(ItemVisibility::VisibilityInfo::ExpertView);
        const auto normalView = qScopeGuard([visibility] {
            visibility->setVisibilityMode(ItemVisibility::VisibilityInfo::NormalView);
        });
        Script::DItem node(kPath, QStringLiteral("IDataBasicInt"), Script::DItem::IoInput);
        auto widget = makeTree();
        WTreePropertyBrowser* browser = browserOf(*widget);
        QVERIFY(browser->createPropertyItem(node, true));
        RequestRecorder host(widget.get());
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), pressed, pressed,
                          Qt::NoModifier);
        QVERIFY(QMetaObject::invokeMethod(widget.get(), "vPropertyEditorMouseEvent",
                                          Q_ARG(QMouseEvent*, &press),
                                          Q_ARG(QtBrowserItem*, nullptr)));
        QVERIFY(!browser->currentItem());
        QVERIFY(browser->findChildren<QMenu*>().isEmpty());
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(host.requests().isEmpty());
    }

    void defaultLinkWidgetOpensTheLinkPage()
    {
        auto widget = makeTree();
        WTreePropertyBrowser* browser = browserOf(*widget);
        Script::DItem node(kPath, QStringLiteral("IDataBasicInt"), Script::DItem::IoInput);
        WidgetProperty* row = browser->createPropertyItem(node, true);
        QStringList links;
        LinkRecordingFactory factory(links);
        browser->setFactoryForManager<QtIntPropertyManager>(
            static_cast<QtIntPropertyManager*>(row->propertyManager()), &factory);

        widget->showDefaultLinkWidget(QString(), QStringLiteral("A.Out"));
        widget->showDefaultLinkWidget(QStringLiteral("Module Application.Nothing"),
                                      QStringLiteral("A.Out"));
        QVERIFY(links.isEmpty());
        widget->showDefaultLinkWidget(kPath, QStringLiteral("Module Application.A.Out"));
        QCOMPARE(links, QStringList {QStringLiteral("Module Application.A.Out")});
        // The editor carried only the dialog; it does not stay behind in the dock.
        QVERIFY(widget->findChildren<LinkRecordingEditor*>().isEmpty());
    }
};

QTEST_MAIN(TestWidgetTreeBrowser)
#include "tst_widgettree_browser.moc"
