#include "hostsettings.h"
#include "jobhost.h"
#include "jobloader.h"
#include "jobmodel.h"
#include "requestlog.h"
#include "testsupport.h"
#include "workbenchprobe.h"
#include "workbenchwindow.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include "qttreepropertybrowser.h"

#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QToolTip>
#include <QTreeWidget>
#include <QLineEdit>
#include <QProcess>
#include <QQuickItem>
#include <QQuickWidget>
#include <QScrollArea>
#include <QSet>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QTreeWidgetItemIterator>

#include <memory>

namespace {

// A picture of a real window has many colours; a blank or failed one has one or two.
int distinctColours(const QImage& image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 3) {
        for (int x = 0; x < image.width(); x += 3)
            colours.insert(image.pixel(x, y));
    }
    return colours.size();
}

QTreeWidgetItem* itemOf(WidgetTreeView& tree, const QString& path)
{
    for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
        const Script::DItem* node = (*it)->data(0, WidgetTreeView::NodeAddressRole).isValid()
            ? tree.getDItem(**it)
            : nullptr;
        if (node && node->iDataPath() == path)
            return *it;
    }
    return nullptr;
}

} // namespace

class TestWorkbench : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void fillsTheJobTree();
    void selectingAModuleSendsARequest();
    void renamingAModule();
    void switchingTheLanguage();
    void openingAnotherJobReplacesBothTrees();
    void deleteKeyRemovesAModule();
    void germanReachesEveryText();
    void germanLinkPanelTextFits();
    void cameraStateAndAssistantHelp();

private:
    /// Switches the language and waits until the window has taken it.
    bool bSwitchLanguage(const QString& language);
    /// The environment of a workbench started by a test: its settings in the test's folder.
    QProcessEnvironment workbenchEnvironment() const;

private slots:
    void theWindowIsNotBlank();
    void aHugeTextValueIsDrawnCut();
    void moduleAssistantOpensAndCloses();
    void refusesALibraryWithoutNavigator();
    void screenshotOption();
    void editOptionsRefuseWhatIsNotThere_data();
    void editOptionsRefuseWhatIsNotThere();
    void anotherBuildIsTheOnlyCopy_data();
    void anotherBuildIsTheOnlyCopy();
    void pluginPathChoice_data();
    void pluginPathChoice();

private:
    WidgetTreeView& tree();
    int requestsWithId(int id) const;

    QTemporaryDir m_oFolder;
    std::unique_ptr<WorkbenchWindow> m_poWindow;
};

void TestWorkbench::initTestCase()
{
    TestSupport::failOnWarnings();
    QVERIFY(m_oFolder.isValid());
    // The dock reads its settings group while it is made.
    openHostSettings(m_oFolder, true);
}

void TestWorkbench::init()
{
    m_poWindow = std::make_unique<WorkbenchWindow>();
    QString error;
    QVERIFY2(m_poWindow->bLoadPlugin(QStringLiteral(PLUGIN_PATH), &error), qPrintable(error));
    QVERIFY2(m_poWindow->bOpenJob(WorkbenchWindow::sSampleJobPath(), &error), qPrintable(error));
    m_poWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poWindow.get()));
}

void TestWorkbench::cleanup()
{
    m_poWindow.reset();
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

WidgetTreeView& TestWorkbench::tree()
{
    return WorkbenchProbe::jobTree(*m_poWindow);
}

int TestWorkbench::requestsWithId(int id) const
{
    return WorkbenchProbe::requestCount(*m_poWindow->poRequestLog(), id);
}

void TestWorkbench::fillsTheJobTree()
{
    auto* dock = m_poWindow->findChild<QDockWidget*>(QStringLiteral("jobTreeDock"));
    QVERIFY(dock);
    QCOMPARE(dock->widget(), m_poWindow->poNavigator());
    QCOMPARE(dock->windowTitle(), QStringLiteral("Job Tree"));

    QTreeWidgetItem* root = tree().topLevelItem(0);
    QVERIFY(root);
    QCOMPARE(root->text(0), QStringLiteral("BottleInspection"));
    QCOMPARE(root->childCount(), 6);
    QVERIFY(root->isExpanded());
    QTreeWidgetItem* exposure
        = itemOf(tree(), QStringLiteral("Module Application.Camera.Exposure"));
    QVERIFY(exposure);
    QCOMPARE(exposure->toolTip(0), QStringLiteral("Input"));
    // The "Add Module" row stays outside the job's subtree.
    QCOMPARE(tree().topLevelItem(1), m_poWindow->poNavigator()->poAddModuleItem());
    // The unavailable node is hidden, the one that is only not shown in the normal view too.
    QVERIFY(itemOf(tree(), QStringLiteral("Module Application.Measurement.Debug"))->isHidden());
    QVERIFY(itemOf(tree(), QStringLiteral("Module Application.Measurement.Offset"))->isHidden());
}

void TestWorkbench::selectingAModuleSendsARequest()
{
    const int before = requestsWithId(9);
    tree().setCurrentItem(itemOf(tree(), QStringLiteral("Module Application.Locator")));
    QCOMPARE(requestsWithId(9), before + 1);
    const RequestLog* log = m_poWindow->poRequestLog();
    QCOMPARE(log->rowTexts(log->count() - 1).value(5),
             QStringLiteral("Selected Module Application.Locator"));
}

void TestWorkbench::renamingAModule()
{
    QTreeWidgetItem* camera = itemOf(tree(), QStringLiteral("Module Application.Camera"));
    tree().setCurrentItem(camera);
    QVERIFY(QMetaObject::invokeMethod(m_poWindow->poNavigator(), "renameCurrentItem"));
    QLineEdit* editor = nullptr;
    QTRY_VERIFY((editor = tree().viewport()->findChild<QLineEdit*>()));
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("LineCamera"));
    QTest::keyClick(editor, Qt::Key_Return);

    QTRY_VERIFY(m_poWindow->model().poNode(QStringLiteral("Module Application.LineCamera")));
    QVERIFY(!m_poWindow->model().poNode(QStringLiteral("Module Application.Camera")));
    QCOMPARE(requestsWithId(522), 1);
    // Links into the renamed module follow it.
    QCOMPARE(m_poWindow->model()
                 .poNode(QStringLiteral("Module Application.ImageFilter.InputImage"))
                 ->linkedPath(),
             QStringLiteral("Module Application.LineCamera.Image"));
    QTRY_VERIFY(itemOf(tree(), QStringLiteral("Module Application.LineCamera")));
    QCOMPARE(itemOf(tree(), QStringLiteral("Module Application.LineCamera"))->text(0),
             QStringLiteral("LineCamera"));
}

void TestWorkbench::switchingTheLanguage()
{
    QSignalSpy retranslated(m_poWindow->poNavigator(), &WidgetTree::retranslate);
    QVERIFY(m_poWindow->bSetLanguage(QStringLiteral("de")));
    QTRY_COMPARE(retranslated.count(), 1);
    auto* dock = m_poWindow->findChild<QDockWidget*>(QStringLiteral("jobTreeDock"));
    QCOMPARE(dock->windowTitle(), QStringLiteral("Jobbaum"));
    QCOMPARE(m_poWindow->windowTitle(), QStringLiteral("Werkbank"));
    QCOMPARE(itemOf(tree(), QStringLiteral("Module Application.Camera"))->text(0),
             QStringLiteral("Kamera"));

    QVERIFY(m_poWindow->bSetLanguage(QStringLiteral("en")));
    QTRY_COMPARE(retranslated.count(), 2);
    QCOMPARE(dock->windowTitle(), QStringLiteral("Job Tree"));
    QCOMPARE(itemOf(tree(), QStringLiteral("Module Application.Camera"))->text(0),
             QStringLiteral("Camera"));
}

QProcessEnvironment TestWorkbench::workbenchEnvironment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       m_oFolder.filePath(QStringLiteral("config")));
    return environment;
}

bool TestWorkbench::bSwitchLanguage(const QString& language)
{
    if (!m_poWindow->bSetLanguage(language))
        return false;
    // The language change reaches the widgets through the event loop.
    const QString title = language == QLatin1String("de") ? QStringLiteral("Werkbank")
                                                          : QStringLiteral("Workbench");
    return QTest::qWaitFor([&] { return m_poWindow->windowTitle() == title; });
}

void TestWorkbench::openingAnotherJobReplacesBothTrees()
{
    // The trees point into the job that is replaced; the sanitizer build sees any read of it.
    QVERIFY(m_poWindow->bSelectNode(QStringLiteral("Module Application.Locator")));
    itemOf(tree(), QStringLiteral("Module Application.Locator"))->setExpanded(true);
    QString error;
    QVERIFY2(m_poWindow->bOpenJob(QStringLiteral(WORKBENCH_DIR "/examples/label-check.json"),
                                  &error),
             qPrintable(error));
    QCOMPARE(tree().topLevelItem(0)->text(0), QStringLiteral("LabelCheck"));
    QVERIFY(!itemOf(tree(), QStringLiteral("Module Application.Locator")));
    auto* browser = m_poWindow->poNavigator()->findChild<QtTreePropertyBrowser*>();
    QVERIFY(browser->topLevelItems().isEmpty());
    QVERIFY(m_poWindow->bSelectNode(QStringLiteral("Module Application.Camera")));
    QCOMPARE(browser->topLevelItems().size(), 2);
}

void TestWorkbench::deleteKeyRemovesAModule()
{
    JobModel& model = m_poWindow->model();
    const QString reference = QStringLiteral("Module Application.Measurement.Reference");
    QVERIFY(m_poWindow->bSelectNode(QStringLiteral("Module Application.Locator")));
    tree().setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_poWindow.get()));
    QTRY_VERIFY(tree().hasFocus());
    QTest::keyClick(&tree(), Qt::Key_Delete);
    QCOMPARE(requestsWithId(521), 1);
    QVERIFY(!model.poNode(QStringLiteral("Module Application.Locator")));
    // The link into the deleted module stays, in error.
    QVERIFY(model.poNode(reference)->isLinked());
    QVERIFY(model.poNode(reference)->hasLinkError());
    // The tree is built again once the request has returned; until then its rows still point
    // to the deleted nodes, so only their texts are read here.
    QTRY_COMPARE(tree().topLevelItem(0)->childCount(), 5);
    auto modules = [this] {
        const QTreeWidgetItem* job = tree().topLevelItem(0);
        QStringList names;
        for (int i = 0; i < job->childCount(); ++i)
            names << job->child(i)->text(0);
        return names;
    };
    QCOMPARE(modules(), QStringList({"Camera", "ImageFilter", "OCR", "Measurement", "Result"}));

    // Undo brings the module back, in its place, with its nodes, and the link works again.
    QTest::keyClick(m_poWindow.get(), Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(tree().topLevelItem(0)->childCount(), 6);
    QCOMPARE(modules(),
             QStringList({"Camera", "ImageFilter", "Locator", "OCR", "Measurement", "Result"}));
    QVERIFY(model.poNode(QStringLiteral("Module Application.Locator.Position")));
    QVERIFY(itemOf(tree(), QStringLiteral("Module Application.Locator.Position")));
    QVERIFY(model.poNode(reference)->isLinked());
    QVERIFY(!model.poNode(reference)->hasLinkError());
    // Redo deletes it again.
    QTest::keyClick(m_poWindow.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(tree().topLevelItem(0)->childCount(), 5);
    QVERIFY(!model.canRedo());
    QVERIFY(model.canUndo());
}

void TestWorkbench::germanReachesEveryText()
{
    QVERIFY(bSwitchLanguage(QStringLiteral("de")));
    QVERIFY(m_poWindow->bSelectNode(QStringLiteral("Module Application.Camera")));
    // Names keep their units.
    auto* browser = m_poWindow->poNavigator()->findChild<QtTreePropertyBrowser*>();
    const QAbstractItemModel* rows = browser->findChild<QTreeView*>()->model();
    QTRY_COMPARE(rows->index(0, 0).data().toString(), QStringLiteral("Belichtungszeit [µs]"));
    QCOMPARE(rows->index(7, 0).data().toString(), QStringLiteral("Sensortemperatur [°C]"));
    // The request log: names of requests, of keys and of an empty reply.
    const RequestLog* log = m_poWindow->poRequestLog();
    const QStringList last = log->rowTexts(log->count() - 1);
    QCOMPARE(last.value(2), QStringLiteral("9 Auswahl geändert"));
    QCOMPARE(last.value(4), QStringLiteral("keine"));
    // The detail line of a load error.
    QString error;
    std::unique_ptr<Script::DItem> broken(JobLoader::poLoad("{\n  \"name\" 3}", &error));
    QVERIFY(!broken);
    QVERIFY2(error.startsWith(QStringLiteral("kein gültiges JSON in Zeile 2, Spalte 10")),
             qPrintable(error));
    // The open dialog: its title from the host, its buttons from Qt's own catalogue.
    QCOMPARE(QCoreApplication::translate("FileDialog", "Open File"), QStringLiteral("Datei öffnen"));
    QCOMPARE(QCoreApplication::translate("QFileDialog", "&Open"), QStringLiteral("&Öffnen"));
    // The example jobs' names.
    QVERIFY2(m_poWindow->bOpenJob(QStringLiteral(WORKBENCH_DIR "/examples/gap-measurement.json"),
                                  &error),
             qPrintable(error));
    QCOMPARE(tree().topLevelItem(0)->text(0), QStringLiteral("Spaltmessung"));
    QVERIFY(bSwitchLanguage(QStringLiteral("en")));
}

void TestWorkbench::germanLinkPanelTextFits()
{
    QVERIFY(bSwitchLanguage(QStringLiteral("de")));
    // No other node can give a trigger mode its value: the picker has nothing to offer.
    const QString path = QStringLiteral("Module Application.Camera.TriggerMode");
    QVERIFY(m_poWindow->bSelectNode(QStringLiteral("Module Application.Camera")));
    QString shown;
    int textWidth = 0;
    int room = 0;
    const TestSupport::ModalRun run = TestSupport::runModal(
        [this, &path] {
            QString error;
            m_poWindow->bOpenEditor(path, true, &error);
        },
        [&](QDialog& dialog) {
            auto* picker = dialog.findChild<QTreeWidget*>(QStringLiteral("m_poTreeWidget"));
            QVERIFY(picker && picker->topLevelItemCount() == 1);
            QTreeWidgetItem* item = picker->topLevelItem(0);
            shown = item->text(0);
            const QRect place = picker->visualItemRect(item);
            textWidth = picker->fontMetrics().horizontalAdvance(shown);
            // What is left of the row for the text once the icon and its margins are drawn.
            room = picker->viewport()->width() - place.left() - picker->iconSize().width() - 12;
            dialog.reject();
        });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(shown, QStringLiteral("Keine Knoten verknüpfbar !"));
    QVERIFY2(textWidth <= room, qPrintable(QStringLiteral("%1 > %2").arg(textWidth).arg(room)));
    QVERIFY(bSwitchLanguage(QStringLiteral("en")));
}

void TestWorkbench::cameraStateAndAssistantHelp()
{
    auto* state = m_poWindow->findChild<QLabel*>(QStringLiteral("cameraStateLabel"));
    QVERIFY(state && state->isVisible());
    QCOMPARE(state->text(), QStringLiteral("Camera: offline"));
    QVERIFY(QMetaObject::invokeMethod(m_poWindow->poNavigator(), "onDisplayToolTip"));
    QCOMPARE(m_poWindow->poRequestLog()->requestId(m_poWindow->poRequestLog()->count() - 1), 51);
    QTRY_VERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), JobHost::sAssistantHelp());
    QVERIFY(QToolTip::text().contains(QStringLiteral("Start Assistant")));
    QToolTip::hideText();
    QVERIFY(bSwitchLanguage(QStringLiteral("de")));
    QCOMPARE(state->text(), QStringLiteral("Kamera: offline"));
    QVERIFY(JobHost::sAssistantHelp().contains(QStringLiteral("Assistent starten")));
    QVERIFY(bSwitchLanguage(QStringLiteral("en")));
}

void TestWorkbench::theWindowIsNotBlank()
{
    const QImage picture = m_poWindow->grab().toImage();
    QCOMPARE(picture.size(), m_poWindow->size() * m_poWindow->devicePixelRatioF());
    QVERIFY2(distinctColours(picture) > 20, qPrintable(QString::number(distinctColours(picture))));
}

void TestWorkbench::aHugeTextValueIsDrawnCut()
{
    const QString path = m_oFolder.filePath(QStringLiteral("huge.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"name":"Big","modules":[{"name":"M","nodes":[{"name":"Text",)"
               R"("type":"IDataBasicString","value":")");
    file.write(QByteArray(20 << 20, 'W'));
    file.write(R"("}]}]})");
    file.close();
    QString error;
    QVERIFY2(m_poWindow->bOpenJob(path, &error), qPrintable(error));
    QVERIFY(m_poWindow->bSelectNode(QStringLiteral("Module Application.M")));

    auto* browser = m_poWindow->poNavigator()->findChild<QtTreePropertyBrowser*>();
    auto* view = browser->findChild<QTreeView*>();
    const QModelIndex value = view->model()->index(0, 1);
    QCOMPARE(value.data().toString(), QString(4096, QLatin1Char('W')) + QChar(0x2026));
    // The cell shows text: dark pixels of letters on the light row.
    QTRY_VERIFY(view->visualRect(value).isValid());
    const QImage picture = view->viewport()->grab(view->visualRect(value)).toImage();
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            dark += qGray(picture.pixel(x, y)) < 100 ? 1 : 0;
    }
    QVERIFY2(dark > 50, qPrintable(QString::number(dark)));
}

void TestWorkbench::moduleAssistantOpensAndCloses()
{
    WidgetTree* dock = m_poWindow->poNavigator();
    auto* pages = dock->findChild<QStackedWidget*>(QStringLiteral("editorAssistantPlaceHolder"));
    auto* area = dock->findChild<QScrollArea*>(QStringLiteral("scrollArea"));
    QVERIFY(pages && area);
    QSignalSpy visible(dock, &WidgetTree::assistantWidgetVisible);
    QVERIFY(QMetaObject::invokeMethod(dock, "displayAssistant"));
    QCOMPARE(requestsWithId(47), 1);
    QCOMPARE(pages->currentIndex(), 1);
    QCOMPARE(visible.count(), 1);
    QCOMPARE(visible.at(0).at(0).toBool(), true);
    auto* assistant = qobject_cast<QQuickWidget*>(area->widget());
    QVERIFY(assistant && assistant->rootObject());

    // A real click on the page's own close button: its QML handler asks the dock to close the
    // page, and the host unloads the page only once that handler has returned.
    auto* closeButton = assistant->rootObject()->findChild<QQuickItem*>(QStringLiteral("closeBtn"));
    QVERIFY(closeButton);
    QTRY_VERIFY(assistant->isVisible() && closeButton->width() > 0);
    const QPointF centre = closeButton->mapToScene(
        QPointF(closeButton->width() / 2, closeButton->height() / 2));
    QTest::mouseClick(assistant, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
    QCOMPARE(requestsWithId(47), 2);
    QCOMPARE(pages->currentIndex(), 0);
    QCOMPARE(visible.count(), 2);
    QTRY_VERIFY(!assistant->rootObject());

    // Asked back before the unload is due, the page stays loaded.
    QVERIFY(QMetaObject::invokeMethod(dock, "displayAssistant"));
    QVERIFY(QMetaObject::invokeMethod(assistant->rootObject(), "qmlCloseSignal"));
    QVERIFY(QMetaObject::invokeMethod(dock, "displayAssistant"));
    QTest::qWait(20);
    QVERIFY(assistant->rootObject());
    QCOMPARE(pages->currentIndex(), 1);
}

void TestWorkbench::refusesALibraryWithoutNavigator()
{
    QString error;
    {
        // Any shared library without the entry will do; the host SDK is one.
        WorkbenchWindow other;
        QVERIFY(!other.bLoadPlugin(QStringLiteral(SDK_PATH), &error));
        QVERIFY2(error.contains(QStringLiteral("no widget descriptor list")), qPrintable(error));
        QVERIFY(!other.poNavigator());
    }
    WorkbenchWindow other;
    error.clear();
    QVERIFY(!other.bLoadPlugin(m_oFolder.filePath(QStringLiteral("missing.so")), &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!other.poNavigator());
}

void TestWorkbench::screenshotOption()
{
    m_poWindow.reset();
    const QString file = m_oFolder.filePath(QStringLiteral("shot.png"));
    QProcess workbench;
    QProcessEnvironment environment = workbenchEnvironment();
    workbench.setProcessEnvironment(environment);
    workbench.start(
        QStringLiteral(WORKBENCH_PATH),
        {QStringLiteral("--screenshot"), file, QStringLiteral("--lang"), QStringLiteral("de")});
    QVERIFY(workbench.waitForFinished(60000));
    const QByteArray errors = workbench.readAllStandardError();
    QVERIFY2(workbench.exitStatus() == QProcess::NormalExit && workbench.exitCode() == 0,
             errors.constData());
    // Nothing to say when all went well, not even the offscreen platform's notices.
    QVERIFY2(errors.isEmpty(), errors.constData());
    const QImage picture(file);
    QVERIFY(!picture.isNull());
    QVERIFY(picture.width() >= 800 && picture.height() >= 600);
    QVERIFY(distinctColours(picture) > 20);
}

void TestWorkbench::editOptionsRefuseWhatIsNotThere_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");

    const QString unknown = QStringLiteral("Module Application.Camera.Nothing");
    const QString output = QStringLiteral("Module Application.Camera.FrameCounter");
    QTest::newRow("--edit, unknown value")
        << "--edit" << unknown << "the property tree shows no value \"" + unknown + '"';
    QTest::newRow("--dialog, unknown value")
        << "--dialog" << unknown << "the property tree shows no value \"" + unknown + '"';
    QTest::newRow("--edit, unknown module") << "--edit"
                                            << "Module Application.Nowhere.X"
                                            << "the job has no node \"Module Application.Nowhere\"";
    QTest::newRow("--edit, an output without editor")
        << "--edit" << output << "the value \"" + output + "\" has no editor";
    QTest::newRow("--dialog, an output without dialog")
        << "--dialog" << output << "the value \"" + output + "\" has no value dialog";
}

void TestWorkbench::editOptionsRefuseWhatIsNotThere()
{
    QFETCH(QString, option);
    QFETCH(QString, path);
    QFETCH(QString, message);
    m_poWindow.reset();
    QProcess workbench;
    QProcessEnvironment variables = workbenchEnvironment();
    workbench.setProcessEnvironment(variables);
    workbench.start(QStringLiteral(WORKBENCH_PATH),
                    {option, path, QStringLiteral("--screenshot"),
                     m_oFolder.filePath(QStringLiteral("refused.png"))});
    QVERIFY(workbench.waitForFinished(60000));
    QCOMPARE(workbench.exitStatus(), QProcess::NormalExit);
    QCOMPARE(workbench.exitCode(), 1);
    const QString errors = QString::fromUtf8(workbench.readAllStandardError());
    QCOMPARE(errors, "workbench: " + message + '\n');
}

void TestWorkbench::anotherBuildIsTheOnlyCopy_data()
{
    QTest::addColumn<bool>("byOption");
    QTest::newRow("--plugin-path") << true;
    QTest::newRow("PROPERTYWIDGETS_PLUGIN") << false;
}

void TestWorkbench::anotherBuildIsTheOnlyCopy()
{
    QFETCH(bool, byOption);
    m_poWindow.reset();
    // Another build: the same library as a file elsewhere, under the name a build gives it.
    QTemporaryDir other;
    const QString copy = other.filePath(QStringLiteral("libpropertyWidgets.so"));
    QVERIFY(QFile::copy(QStringLiteral(PLUGIN_PATH), copy));
    const QString canonicalCopy = QFileInfo(copy).canonicalFilePath();
    QProcess workbench;
    QProcessEnvironment variables = workbenchEnvironment();
    QStringList arguments {QStringLiteral("--which-plugin")};
    if (byOption)
        arguments << QStringLiteral("--plugin-path") << copy;
    else
        variables.insert(QStringLiteral("PROPERTYWIDGETS_PLUGIN"), copy);
    workbench.setProcessEnvironment(variables);
    workbench.start(QStringLiteral(WORKBENCH_PATH), arguments);
    QVERIFY(workbench.waitForFinished(60000));
    QVERIFY2(workbench.exitCode() == 0, workbench.readAllStandardError().constData());
    // The copy answered, and it is the only one in the process: the workbench's own calls go
    // to it as well.
    const QStringList lines
        = QString::fromLocal8Bit(workbench.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines, QStringList({"plug-in: " + canonicalCopy, "copy: " + canonicalCopy}));

    // Without another build named, the linked library answers alone.
    workbench.setProcessEnvironment(workbenchEnvironment());
    workbench.start(QStringLiteral(WORKBENCH_PATH), {QStringLiteral("--which-plugin")});
    QVERIFY(workbench.waitForFinished(60000));
    const QString linked = QFileInfo(QStringLiteral(PLUGIN_PATH)).canonicalFilePath();
    QCOMPARE(QString::fromLocal8Bit(workbench.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts),
             QStringList({"plug-in: " + linked, "copy: " + linked}));
}

void TestWorkbench::pluginPathChoice_data()
{
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QString>("option");
    QTest::addColumn<bool>("loads");

    const QString plugin = QStringLiteral(PLUGIN_PATH);
    const QString missing = QStringLiteral("/nonexistent/libpropertyWidgets.so");
    QTest::newRow("the environment names a missing library") << missing << QString() << false;
    QTest::newRow("the environment names the plug-in") << plugin << QString() << true;
    QTest::newRow("the command line wins") << missing << plugin << true;
    QTest::newRow("the command line names a missing library") << plugin << missing << false;
    QTest::newRow("the command line names a library that is no plug-in")
        << plugin << QStringLiteral(SDK_PATH) << false;
}

void TestWorkbench::pluginPathChoice()
{
    QFETCH(QString, environment);
    QFETCH(QString, option);
    QFETCH(bool, loads);
    m_poWindow.reset();
    QProcess workbench;
    QProcessEnvironment variables = workbenchEnvironment();
    variables.insert(QStringLiteral("PROPERTYWIDGETS_PLUGIN"), environment);
    workbench.setProcessEnvironment(variables);
    QStringList arguments {QStringLiteral("--screenshot"),
                           m_oFolder.filePath(QStringLiteral("p.png"))};
    if (!option.isEmpty())
        arguments << QStringLiteral("--plugin-path") << option;
    workbench.start(QStringLiteral(WORKBENCH_PATH), arguments);
    QVERIFY(workbench.waitForFinished(60000));
    QCOMPARE(workbench.exitCode() == 0, loads);
    // A refusal names the library it refused.
    const QString refused = option.isEmpty() ? environment : option;
    if (!loads) {
        const QByteArray errors = workbench.readAllStandardError();
        QVERIFY2(errors.contains(QFileInfo(refused).fileName().toLocal8Bit()), errors.constData());
    }
}

QTEST_MAIN(TestWorkbench)
#include "tst_workbench.moc"
