// Loads the built plug-in the way the host does: by path with QLibrary, reaching everything
// through the exported entry, the descriptor, the meta-object and the widget's children.

#include "tabletranslator.h"

#include "sdk/ditem.h"
#include "sdk/widgetdescriptor.h"
#include "sdk/widgetinterface.h"
#include "wutils/wrequest.h"

#include "testsupport.h"

#include <QLibrary>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>
#include <QWidget>

#include <memory>
#include <vector>

namespace {

using DescriptorList = std::vector<WidgetModules::WidgetDescriptor*>;
using DescriptorListFunction = DescriptorList* (*)();

const int kNodeAddressRole = Qt::UserRole + 8;

} // namespace

// The host's end of treeReq: it records each request and leaves the replies as they came.
class HostEnd : public QObject
{
    Q_OBJECT

public:
    QList<int> m_lIds;
    QList<int> m_lCategories;
    QList<QVariant> m_lFirstValues;

public slots:
    void onTreeReq(WRequest<QVariant> request, QVariant& reply)
    {
        Q_UNUSED(reply)
        m_lIds.append(request.id);
        m_lCategories.append(request.category);
        m_lFirstValues.append(request.empty() ? QVariant() : request.front().first);
    }
};

class TestPluginLoad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        m_oLibrary.setFileName(QStringLiteral(PW_PLUGIN_PATH));
        QVERIFY2(m_oLibrary.load(), qPrintable(m_oLibrary.errorString()));
        m_poList
            = reinterpret_cast<DescriptorListFunction>(m_oLibrary.resolve("oWidgetDescriptorList"));
        QVERIFY(m_poList);
    }

    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void descriptor()
    {
        DescriptorList* list = m_poList();
        QVERIFY(!list->empty());
        const WidgetModules::WidgetDescriptor* descriptor = list->back();
        QCOMPARE(descriptor->name(), std::string("Navigator"));
        QCOMPARE(descriptor->version().major, 1);
        QCOMPARE(descriptor->version().minor, 0);
        QCOMPARE(descriptor->version().patch, 0);
        QCOMPARE(descriptor->version().build, 22780);
        std::string text;
        descriptor->version() >> text;
        QCOMPARE(text, std::string("1.0.0"));
        QVERIFY(descriptor->createFunction());
        QVERIFY(descriptor->destroyFunction());

        WidgetModules::WidgetInterface* instance = descriptor->poCreateInstance();
        QVERIFY(instance);
        QCOMPARE(instance->getModuleDescriptor(), descriptor);
        QPointer<QWidget> widget(dynamic_cast<QWidget*>(instance));
        QVERIFY(widget);
        QCOMPARE(widget->objectName(), QStringLiteral("NavigatorWidgetLayout"));
        descriptor->vDestroyInstance(instance);
        QVERIFY(widget.isNull());
    }

    void listGrowsByOnePerCall()
    {
        DescriptorList* list = m_poList();
        const std::size_t size = list->size();
        QCOMPARE(m_poList(), list);
        QCOMPARE(list->size(), size + 1);
        QCOMPARE(list->at(size), list->at(size - 1));
    }

    void createAndDestroyRepeatedly()
    {
        const WidgetModules::WidgetDescriptor* descriptor = m_poList()->back();
        for (int i = 0; i < 200; ++i) {
            WidgetModules::WidgetInterface* instance = descriptor->poCreateInstance();
            QVERIFY(instance);
            descriptor->vDestroyInstance(instance);
        }
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void selectionAndRename()
    {
        const WidgetModules::WidgetDescriptor* descriptor = m_poList()->back();
        std::unique_ptr<WidgetModules::WidgetInterface, void (*)(WidgetModules::WidgetInterface*)>
            instance(descriptor->poCreateInstance(), descriptor->destroyFunction());
        auto* widget = dynamic_cast<QWidget*>(instance.get());
        HostEnd host;
        QVERIFY(connect(widget, SIGNAL(treeReq(WRequest<QVariant>, QVariant&)), &host,
                        SLOT(onTreeReq(WRequest<QVariant>, QVariant&)), Qt::DirectConnection));

        auto* tree = widget->findChild<QTreeWidget*>();
        QVERIFY(tree);
        Script::DItem root(QStringLiteral("Module Application"), QStringLiteral("IDataModule"));
        auto* camera = new Script::DItem(QStringLiteral("Module Application.Camera"),
                                         QStringLiteral("IDataModule"));
        camera->setRenamingAllowed(true);
        root.vAddChildNode(camera);
        auto* rootItem = new QTreeWidgetItem;
        rootItem->setText(0, root.unTranslatedName());
        rootItem->setData(0, kNodeAddressRole,
                          static_cast<qint64>(reinterpret_cast<quintptr>(&root)));
        auto* cameraItem = new QTreeWidgetItem(rootItem);
        cameraItem->setText(0, camera->unTranslatedName());
        cameraItem->setData(0, kNodeAddressRole,
                            static_cast<qint64>(reinterpret_cast<quintptr>(camera)));
        tree->addTopLevelItem(rootItem);
        tree->expandAll();

        widget->show();
        QApplication::setActiveWindow(widget);
        QVERIFY(QTest::qWaitForWindowActive(widget));

        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->visualItemRect(cameraItem).center());
        QCOMPARE(host.m_lIds, QList<int> {9});
        QCOMPARE(host.m_lCategories, QList<int> {0});

        QVERIFY(QMetaObject::invokeMethod(widget, "renameCurrentItem"));
        QLineEdit* editor = tree->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("Cam.2"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(QToolTip::text(),
                     QStringLiteral("A module name cannot contain any of the following "
                                    "characters : \n\t ? \"  /  \\  <  >  *  |  :  . "));
        QVERIFY(!host.m_lIds.contains(522));
        QTRY_COMPARE(tree->viewport()->findChildren<QLineEdit*>().size(), 1);
        editor = tree->viewport()->findChild<QLineEdit*>();
        QCOMPARE(editor->text(), QString());
        QTest::keyClicks(editor, QStringLiteral("Sensor"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(host.m_lIds, (QList<int> {9, 39, 40, 522}));
        QCOMPARE(host.m_lCategories.last(), 500);
        const QVariantList address {static_cast<qint64>(reinterpret_cast<quintptr>(cameraItem))};
        QCOMPARE(host.m_lFirstValues.last().toList(), address);
    }

    void languageChange()
    {
        const WidgetModules::WidgetDescriptor* descriptor = m_poList()->back();
        std::unique_ptr<WidgetModules::WidgetInterface, void (*)(WidgetModules::WidgetInterface*)>
            instance(descriptor->poCreateInstance(), descriptor->destroyFunction());
        auto* widget = dynamic_cast<QWidget*>(instance.get());
        QSignalSpy retranslated(widget, SIGNAL(retranslate()));
        TableTranslator translator;
        translator.add(QStringLiteral("NavigatorWidgetLayout"), QStringLiteral("  Project Window"),
                       QStringLiteral("  Projektfenster"));
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(widget, &change);
        QVERIFY(retranslated.count() >= 1);
        QCOMPARE(widget->windowTitle(), QStringLiteral("  Projektfenster"));
        QCoreApplication::removeTranslator(&translator);
    }

private:
    QLibrary m_oLibrary;
    DescriptorListFunction m_poList = nullptr;
};

QTEST_MAIN(TestPluginLoad)
#include "tst_pluginload.moc"
