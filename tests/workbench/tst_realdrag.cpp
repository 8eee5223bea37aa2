#include "hostsettings.h"
#include "jobmodel.h"
#include "moduletoolbox.h"
#include "requestlog.h"
#include "samplejob.h"
#include "testsupport.h"
#include "workbenchprobe.h"
#include "workbenchwindow.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"

#include <QApplication>
#include <QDrag>
#include <QMouseEvent>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

/// Modules placed by drags that the platform carries out, on a real display server: the
/// pointer's moves and the release are sent while the drag's own event loop runs.
class TestRealDrag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void toolBoxDrag();
    void refusedPositionTakesNoDrop();
    void moduleDrag();

private:
    WidgetTreeView& tree() const;
    QTreeWidgetItem* row(const QString& module) const;
    QStringList jobModules() const;
    QTreeWidgetItem* phantom() const;
    int requests(int id) const;
    bool drag(QWidget* from, QPoint start, const std::function<void()>& duringDrag);
    void pointerTo(QWidget* widget, QPoint pos, Qt::MouseButtons buttons);

    QTemporaryDir m_oFolder;
    std::unique_ptr<WorkbenchWindow> m_poWindow;
};

void TestRealDrag::initTestCase()
{
    TestSupport::failOnWarnings();
    QVERIFY(m_oFolder.isValid());
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("Drags are carried out by a display server; this test runs under xvfb-run.");
    openHostSettings(m_oFolder, false);
}

void TestRealDrag::init()
{
    m_poWindow = std::make_unique<WorkbenchWindow>();
    QString error;
    QVERIFY2(m_poWindow->bLoadPlugin(QStringLiteral(PLUGIN_PATH), &error), qPrintable(error));
    QVERIFY2(m_poWindow->bOpenJob(WorkbenchWindow::sSampleJobPath(), &error), qPrintable(error));
    m_poWindow->setGeometry(0, 0, 1200, 900);
    m_poWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poWindow.get()));
    m_poWindow->poNavigator()
        ->findChild<QSplitter*>(QStringLiteral("splitter"))
        ->setSizes({500, 300});
    QTest::qWait(50);
}

void TestRealDrag::cleanup()
{
    m_poWindow.reset();
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

WidgetTreeView& TestRealDrag::tree() const
{
    return WorkbenchProbe::jobTree(*m_poWindow);
}

QTreeWidgetItem* TestRealDrag::row(const QString& module) const
{
    return m_poWindow->poNavigator()->poFindItem(SampleJob::path(module));
}

QStringList TestRealDrag::jobModules() const
{
    return WorkbenchProbe::moduleNames(m_poWindow->model());
}

QTreeWidgetItem* TestRealDrag::phantom() const
{
    return WorkbenchProbe::previewRow(tree());
}

int TestRealDrag::requests(int id) const
{
    return WorkbenchProbe::requestCount(*m_poWindow->poRequestLog(), id);
}

void TestRealDrag::pointerTo(QWidget* widget, QPoint pos, Qt::MouseButtons buttons)
{
    QMouseEvent move(QEvent::MouseMove, pos, widget->mapToGlobal(pos), Qt::NoButton, buttons,
                     Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

bool TestRealDrag::drag(QWidget* from, QPoint start, const std::function<void()>& duringDrag)
{
    QTest::mousePress(from, Qt::LeftButton, Qt::NoModifier, start);
    bool ran = false;
    // Runs inside the drag's own event loop.
    QTimer::singleShot(0, this, [&] {
        ran = true;
        duringDrag();
    });
    // Item views arm a drag on the first move and start it on a later one.
    for (int step = 1; step <= 3; ++step)
        pointerTo(from, start + QPoint(0, step * QApplication::startDragDistance()),
                  Qt::LeftButton);
    QTest::qWait(10);
    return ran;
}

void TestRealDrag::toolBoxDrag()
{
    auto* toolBox = m_poWindow->findChild<ModuleToolBox*>();
    QListWidgetItem* blob
        = toolBox->findItems(QStringLiteral("BlobFinder"), Qt::MatchExactly).value(0);
    QVERIFY(blob);
    QWidget* viewport = tree().viewport();
    bool previewed = false;
    QVERIFY(drag(toolBox->viewport(), toolBox->visualItemRect(blob).center(), [&] {
        const QPoint over = tree().visualItemRect(row(QStringLiteral("Camera"))).center();
        pointerTo(viewport, over, Qt::LeftButton);
        pointerTo(viewport, over + QPoint(1, 0), Qt::LeftButton);
        previewed = phantom() && phantom()->text(0) == QLatin1String("BlobFinder")
            && tree().topLevelItem(0)->indexOfChild(phantom()) == 1;
        QMouseEvent release(QEvent::MouseButtonRelease, over, viewport->mapToGlobal(over),
                            Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &release);
    }));
    QVERIFY(previewed);
    QTRY_COMPARE(requests(520), 1);
    QCOMPARE(jobModules(),
             (QStringList {"Camera", "BlobFinder", "ImageFilter", "Locator", "OCR", "Measurement",
                           "Result"}));
}

void TestRealDrag::refusedPositionTakesNoDrop()
{
    const QStringList before = jobModules();
    auto* toolBox = m_poWindow->findChild<ModuleToolBox*>();
    QListWidgetItem* blob
        = toolBox->findItems(QStringLiteral("BlobFinder"), Qt::MatchExactly).value(0);
    QVERIFY(blob);
    QWidget* viewport = tree().viewport();
    bool previewed = true;
    QVERIFY(drag(toolBox->viewport(), toolBox->visualItemRect(blob).center(), [&] {
        // In front of the camera nothing may stand.
        const QPoint over = tree().visualItemRect(tree().topLevelItem(0)).center();
        pointerTo(viewport, over, Qt::LeftButton);
        pointerTo(viewport, over + QPoint(1, 0), Qt::LeftButton);
        previewed = phantom() != nullptr;
        QMouseEvent release(QEvent::MouseButtonRelease, over, viewport->mapToGlobal(over),
                            Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &release);
    }));
    QVERIFY(!previewed);
    QTest::qWait(50);
    QCOMPARE(requests(520), 0);
    QCOMPARE(jobModules(), before);
    // The drag ended, and with it the module-only view.
    QTRY_VERIFY(!phantom());
    QVERIFY(!tree().uniformRowHeights());
}

void TestRealDrag::moduleDrag()
{
    QWidget* viewport = tree().viewport();
    bool previewed = false;
    QVERIFY(drag(viewport, tree().visualItemRect(row(QStringLiteral("Result"))).center(), [&] {
        const QPoint over = tree().visualItemRect(row(QStringLiteral("Camera"))).center();
        pointerTo(viewport, over, Qt::LeftButton);
        pointerTo(viewport, over + QPoint(1, 0), Qt::LeftButton);
        previewed = phantom() && phantom()->text(0) == QLatin1String("Result")
            && tree().topLevelItem(0)->indexOfChild(phantom()) == 1;
        QMouseEvent release(QEvent::MouseButtonRelease, over, viewport->mapToGlobal(over),
                            Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &release);
    }));
    QVERIFY(previewed);
    QTRY_COMPARE(requests(532), 1);
    QCOMPARE(jobModules(),
             (QStringList {"Camera", "Result", "ImageFilter", "Locator", "OCR", "Measurement"}));
}

QTEST_MAIN(TestRealDrag)
#include "tst_realdrag.moc"
