#include "requestrecorder.h"

#include "controls/disabledlookstyle.h"
#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/appfiletype.h"
#include "sdk/dialogautomation.h"
#include "sdk/projectmode.h"
#include "sdk/visibilityinfo.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include "showwidget.h"
#include "testsupport.h"

#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QFrame>
#include <QQuickItem>
#include <QQuickWidget>
#include <QScrollArea>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString kGroup = QStringLiteral("SHOW_WINDOWS");
const QString kShowWelcomePage = QStringLiteral("ShowWelcomePage");

// The parts of the dock that the host and the tests reach by name.
struct Dock
{
    explicit Dock(WidgetTree* widget)
        : stack(widget->findChild<QStackedWidget*>(QStringLiteral("editorAssistantPlaceHolder")))
        , treeHolder(widget->findChild<QFrame*>(QStringLiteral("treePlaceHolder")))
        , editor(widget->findChild<QWidget*>(QStringLiteral("editorWidget")))
        , start(widget->findChild<QQuickWidget*>(QStringLiteral("startAssistantQML")))
        , welcome(widget->findChild<QQuickWidget*>(QStringLiteral("welcomeAssistant")))
        , assistantPage(widget->findChild<QWidget*>(QStringLiteral("assistantPlaceHolder")))
        , assistant(qobject_cast<QQuickWidget*>(
              widget->findChild<QScrollArea*>(QStringLiteral("scrollArea"))->widget()))
        , view(widget->findChild<WidgetTreeView*>())
        , browser(widget->findChild<PropertyBrowser::WTreePropertyBrowser*>())
    { }

    QStackedWidget* stack;
    QFrame* treeHolder;
    QWidget* editor;
    QQuickWidget* start;
    QQuickWidget* welcome;
    QWidget* assistantPage;
    QQuickWidget* assistant;
    WidgetTreeView* view;
    PropertyBrowser::WTreePropertyBrowser* browser;
};

bool hasCursor(const QWidget* widget, Qt::CursorShape shape)
{
    return widget->testAttribute(Qt::WA_SetCursor) && widget->cursor().shape() == shape;
}

} // namespace

class TestWidgetTreeModes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        // The dock's message boxes are answered here, not left to a person.
        Utils::DialogAutomation::setEnabled(true);
        QVERIFY(m_oDir.isValid());
        m_sSettingsPath = m_oDir.filePath(QStringLiteral("settings.ini"));
        QVERIFY(Settings::WAppSettings::instance()->open(m_sSettingsPath));
        // A module assistant with the close signal the dock listens to.
        m_sAssistantPath = m_oDir.filePath(QStringLiteral("Assistant.qml"));
        QFile file(m_sAssistantPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("import QtQuick 2.15\nRectangle { signal qmlCloseSignal(); "
                   "implicitWidth: 200; implicitHeight: 200 }\n");
    }

    void init()
    {
        Settings::WAppSettings::instance()->removeSetting(kGroup);
        Utils::DialogAutomation::clear();
        ItemVisibility::VisibilityInfo::instance()->setVisibilityMode(
            ItemVisibility::VisibilityInfo::NormalView);
    }

    void cleanup()
    {
        QGuiApplication::restoreOverrideCursor();
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void projectModeFlags_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("lockedLook");
        QTest::addColumn<bool>("treeEnabled");
        QTest::addColumn<bool>("startEnabled");
        QTest::addColumn<bool>("treeForbidden");
        QTest::addColumn<bool>("editorForbidden");
        QTest::newRow("locked") << 1 << true << true << false << false << true;
        QTest::newRow("hard lock") << 65536 << false << false << true << true << true;
        QTest::newRow("locked and hard lock") << 65537 << true << false << false << true << true;
        QTest::newRow("locked and released") << 17 << false << true << true << false << false;
        QTest::newRow("released") << 16 << false << true << true << false << false;
        QTest::newRow("no steering flag") << 4096 << false << true << true << false << false;
        QTest::newRow("locked, editing blocked") << 4097 << true << true << false << false << true;
    }

    void projectModeFlags()
    {
        QFETCH(int, mode);
        QFETCH(bool, lockedLook);
        QFETCH(bool, treeEnabled);
        QFETCH(bool, startEnabled);
        QFETCH(bool, treeForbidden);
        QFETCH(bool, editorForbidden);
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        Utils::ProjectMode projectMode;
        widget.setResources(nullptr, &projectMode);
        widget.showingWidget();
        QStyle* before = widget.style();

        projectMode.setProjectMode(mode);

        QCOMPARE(qobject_cast<DisabledLookStyle*>(dock.view->style()) != nullptr, lockedLook);
        QCOMPARE(qobject_cast<DisabledLookStyle*>(widget.style()) != nullptr, lockedLook);
        if (!lockedLook && !(mode & 16))
            QCOMPARE(widget.style(), before);
        if (mode & 16)
            QCOMPARE(widget.style(), QApplication::style());
        QCOMPARE(dock.view->isEnabled(), treeEnabled);
        // The property tree is locked and released with the job tree, and takes the mode.
        QCOMPARE(dock.browser->isEnabled(), treeEnabled);
        QCOMPARE(hasCursor(dock.browser, Qt::ArrowCursor), bool(mode & 16));
        QCOMPARE(hasCursor(dock.browser, Qt::ForbiddenCursor), !(mode & 16));
        QCOMPARE(PropertyBrowser::WTreePropertyBrowser::isEditorCreationAllowed(),
                 (mode & 0x1001) != 0x1001);
        QCOMPARE(dock.start->isEnabled(), startEnabled);
        QCOMPARE(dock.start->rootObject()->isEnabled(), startEnabled);
        QCOMPARE(hasCursor(dock.treeHolder, Qt::ForbiddenCursor), treeForbidden);
        QCOMPARE(hasCursor(dock.editor, Qt::ForbiddenCursor), editorForbidden);
        if (lockedLook) {
            const QPalette palette = dock.view->palette();
            QCOMPARE(palette.color(QPalette::Active, QPalette::Text),
                     QApplication::palette().color(QPalette::Disabled, QPalette::Text));
        }
    }

    void modeWithoutSteeringFlagKeepsTheLock()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        Utils::ProjectMode projectMode;
        widget.setResources(nullptr, &projectMode);
        widget.showingWidget();
        projectMode.setProjectMode(1);
        QVERIFY(qobject_cast<DisabledLookStyle*>(dock.view->style()));

        projectMode.setProjectMode(4096);
        // Only the browser takes the new mode; the locked look stays as it was.
        QVERIFY(PropertyBrowser::WTreePropertyBrowser::isEditorCreationAllowed());
        QVERIFY(qobject_cast<DisabledLookStyle*>(dock.view->style()));
        QVERIFY(qobject_cast<DisabledLookStyle*>(widget.style()));
        QVERIFY(!dock.start->isEnabled());
        QVERIFY(!dock.start->rootObject()->isEnabled());
        QVERIFY(hasCursor(dock.editor, Qt::ForbiddenCursor));
    }

    void releaseUndoesLocks()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        Utils::ProjectMode projectMode;
        widget.setResources(nullptr, &projectMode);
        widget.showingWidget();
        projectMode.setProjectMode(65537);
        QVERIFY(!dock.browser->isEnabled());
        projectMode.setProjectMode(16);
        QCOMPARE(dock.view->style(), QApplication::style());
        QVERIFY(dock.view->isEnabled());
        QVERIFY(dock.browser->isEnabled());
        QVERIFY(dock.start->isEnabled());
        QVERIFY(dock.start->rootObject()->isEnabled());
        QVERIFY(hasCursor(dock.treeHolder, Qt::ArrowCursor));
        QVERIFY(hasCursor(dock.editor, Qt::ArrowCursor));
        QCOMPARE(dock.stack->currentIndex(), 0);
    }

    void noProjectModeDoesNothing()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        QVERIFY(QMetaObject::invokeMethod(&widget, "onFileTypeChanged",
                                          Q_ARG(AppSpecifficFileType, FileTypeGuidedJob)));
        widget.showingWidget();
        widget.hidingWidget();
        widget.showingWidget();
        QVERIFY(host.requests().isEmpty());
        QCOMPARE(dock.stack->currentIndex(), 0);
    }

    void pageDecision_data()
    {
        QTest::addColumn<int>("fileType");
        QTest::addColumn<int>("viewMode");
        QTest::addColumn<QVariant>("welcomeSetting");
        QTest::addColumn<int>("page");
        QTest::addColumn<bool>("assistantRequested");
        const QVariant noGroup;
        QTest::newRow("guided job, welcome") << 5 << 0 << QVariant(true) << 2 << false;
        QTest::newRow("guided template, welcome") << 6 << 0 << QVariant(true) << 2 << false;
        QTest::newRow("guided job, no welcome") << 5 << 0 << QVariant(false) << 1 << true;
        QTest::newRow("guided job, no group") << 5 << 0 << noGroup << 1 << true;
        QTest::newRow("guided job, expert view") << 5 << 1 << QVariant(true) << 0 << false;
        QTest::newRow("plain job") << 1 << 0 << QVariant(true) << 0 << false;
        QTest::newRow("no file") << 0 << 0 << QVariant(true) << 0 << false;
    }

    void pageDecision()
    {
        QFETCH(int, fileType);
        QFETCH(int, viewMode);
        QFETCH(QVariant, welcomeSetting);
        QFETCH(int, page);
        QFETCH(bool, assistantRequested);
        if (welcomeSetting.isValid())
            Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage,
                                                                               welcomeSetting);
        ItemVisibility::VisibilityInfo::instance()->setVisibilityMode(viewMode);
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        Utils::ProjectMode projectMode;
        widget.setResources(nullptr, &projectMode);
        QSignalSpy toolbox(&widget, &WidgetTree::enableToolbox);
        QSignalSpy welcomeVisible(&widget, &WidgetTree::welcomePageVisible);
        QVERIFY(QMetaObject::invokeMethod(
            &widget, "onFileTypeChanged",
            Q_ARG(AppSpecifficFileType, static_cast<AppSpecifficFileType>(fileType))));

        widget.showingWidget();

        QCOMPARE(dock.stack->currentIndex(), page);
        QCOMPARE(host.ids().contains(47), assistantRequested);
        QCOMPARE(widget.isWelcomeAssistantOn(), page == 2);
        QCOMPARE(widget.isAssistantVisible(), page == 2);
        if (page == 2) {
            QVERIFY(!dock.view->isEnabled());
            QVERIFY(hasCursor(dock.treeHolder, Qt::ForbiddenCursor));
            QCOMPARE(toolbox.count(), 1);
            QCOMPARE(toolbox.first().first().toBool(), false);
            QCOMPARE(welcomeVisible.count(), 1);
            QCOMPARE(welcomeVisible.first().first().toBool(), true);
        } else {
            QVERIFY(dock.view->isEnabled());
            QCOMPARE(toolbox.count(), 0);
            QCOMPARE(welcomeVisible.count(), 0);
        }
    }

    void hidingWithAndWithoutFile_data()
    {
        QTest::addColumn<int>("fileType");
        QTest::addColumn<bool>("decidesAgain");
        QTest::newRow("no file type") << 0 << true;
        QTest::newRow("guided job") << 5 << false;
    }

    void hidingWithAndWithoutFile()
    {
        QFETCH(int, fileType);
        QFETCH(bool, decidesAgain);
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        Utils::ProjectMode projectMode;
        widget.setResources(nullptr, &projectMode);
        QVERIFY(QMetaObject::invokeMethod(
            &widget, "onFileTypeChanged",
            Q_ARG(AppSpecifficFileType, static_cast<AppSpecifficFileType>(fileType))));
        widget.showingWidget();
        widget.hidingWidget();
        // While hidden the mode is not followed.
        projectMode.setProjectMode(65536);
        QVERIFY(dock.view->isEnabled());
        host.clear();

        widget.showingWidget();
        QCOMPARE(!dock.view->isEnabled(), decidesAgain);
        QCOMPARE(host.ids().contains(47), decidesAgain && fileType == 5);
        // Either way the mode is followed again.
        projectMode.setProjectMode(16);
        QVERIFY(dock.view->isEnabled());
        projectMode.setProjectMode(65536);
        QVERIFY(!dock.view->isEnabled());
    }

    void shownLocksDockOnWelcomePage_data()
    {
        QTest::addColumn<bool>("welcome");
        QTest::addColumn<int>("features");
        QTest::newRow("welcome page") << true << 0;
        QTest::newRow("editor page") << false << 7;
    }

    void shownLocksDockOnWelcomePage()
    {
        QFETCH(bool, welcome);
        QFETCH(int, features);
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage, true);
        QDockWidget dock;
        dock.setFeatures(QDockWidget::DockWidgetFeatures(7));
        auto* widget = new WidgetTree(&dock, Qt::WindowFlags());
        dock.setWidget(widget);
        Utils::ProjectMode projectMode;
        widget->setResources(nullptr, &projectMode);
        QVERIFY(QMetaObject::invokeMethod(
            widget, "onFileTypeChanged",
            Q_ARG(AppSpecifficFileType, welcome ? FileTypeGuidedJob : FileTypeJob)));
        widget->showingWidget();
        widget->shown();
        QCOMPARE(int(dock.features()), features);
    }

    void displayAssistantTwiceSendsOneRequest()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        QSignalSpy visible(&widget, &WidgetTree::assistantWidgetVisible);
        QVERIFY(showWidget(&widget));
        QVERIFY(QMetaObject::invokeMethod(&widget, "displayAssistant"));
        QCOMPARE(host.ids(), QList<int> {47});
        const RecordedRequest& request = host.requests().first();
        QCOMPARE(request.category, 0);
        QCOMPARE(request.reply, QVariant(false));
        QCOMPARE(request.params.size(), 1);
        QCOMPARE(request.params.first().second, 953);
        QCOMPARE(request.params.first().first, QVariant(true));
        QCOMPARE(dock.stack->currentIndex(), 1);
        QVERIFY(dock.assistant->isVisible());
        QVERIFY(widget.isAssistantVisible());

        QVERIFY(QMetaObject::invokeMethod(&widget, "displayAssistant"));
        QCOMPARE(host.ids(), QList<int> {47});
        QCOMPARE(visible.count(), 2);
        QCOMPARE(visible.last().first().toBool(), true);
    }

    void assistantVisibility_data()
    {
        QTest::addColumn<bool>("visibility");
        QTest::addColumn<bool>("makeRequest");
        QTest::addColumn<bool>("hostFails");
        QTest::addColumn<bool>("requested");
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("features");
        QTest::newRow("close without request") << false << false << false << false << 0 << 7;
        QTest::newRow("open without request") << true << false << false << false << 1 << 0;
        QTest::newRow("close by host") << false << true << false << true << 0 << 7;
        QTest::newRow("open by host") << true << true << false << true << 1 << 0;
        QTest::newRow("host fails to open") << true << true << true << true << 2 << 5;
        QTest::newRow("host fails to close") << false << true << true << true << 2 << 5;
    }

    void assistantVisibility()
    {
        QFETCH(bool, visibility);
        QFETCH(bool, makeRequest);
        QFETCH(bool, hostFails);
        QFETCH(bool, requested);
        QFETCH(int, page);
        QFETCH(int, features);
        QDockWidget holder;
        holder.setFeatures(QDockWidget::DockWidgetFeatures(5));
        auto* widget = new WidgetTree(&holder, Qt::WindowFlags());
        holder.setWidget(widget);
        Dock dock(widget);
        // Start from a page that neither sequence shows, so that every change is seen.
        dock.stack->setCurrentIndex(2);
        RequestRecorder host(widget);
        host.answer(47, hostFails);
        QSignalSpy visible(widget, &WidgetTree::assistantWidgetVisible);
        widget->setAssistantVisibility(visibility, makeRequest);
        QCOMPARE(host.ids().contains(47), requested);
        if (requested)
            QCOMPARE(host.requests().first().params.first().first, QVariant(visibility));
        QCOMPARE(dock.stack->currentIndex(), page);
        QCOMPARE(int(holder.features()), features);
        QCOMPARE(visible.count(), hostFails ? 0 : 1);
        if (!hostFails)
            QCOMPARE(visible.first().first().toBool(), visibility);
    }

    void hostFailureWithoutErrorsRestoresCursor()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        RequestRecorder host(&widget);
        host.answer(47, true);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        widget.setAssistantVisibility(true, true);
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
        QVERIFY(Utils::DialogAutomation::calls().isEmpty());
    }

    void hostFailureWithErrorsWarns()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        host.answer(47, true);
        TestSupport::expectWarning(QRegularExpression(QStringLiteral("Missing\\.qml")));
        dock.assistant->setSource(
            QUrl::fromLocalFile(m_oDir.filePath(QStringLiteral("Missing.qml"))));
        QVERIFY(!dock.assistant->errors().isEmpty());
        widget.setAssistantVisibility(true, true);
        const QList<Utils::DialogAutomation::Call> calls = Utils::DialogAutomation::calls();
        QCOMPARE(calls.size(), 1);
        QCOMPARE(calls.first().m_eKind, Utils::DialogAutomation::Warning);
        QCOMPARE(calls.first().m_slTexts.first(),
                 QStringLiteral("Error loading the assistant of the module !"));
        QString expected;
        for (const QQmlError& error : dock.assistant->errors())
            expected += error.toString() + QLatin1Char('\n');
        QCOMPARE(calls.first().m_slTexts.at(1), expected);
        QCOMPARE(calls.first().m_poParent.data(), &widget);
        QCOMPARE(dock.stack->currentIndex(), 0);
    }

    void assistantCloseSignalUnloads()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        dock.assistant->setSource(QUrl::fromLocalFile(m_sAssistantPath));
        QVERIFY(dock.assistant->rootObject());
        widget.setAssistantVisibility(true, false);
        QCOMPARE(dock.stack->currentIndex(), 1);
        QVERIFY(QMetaObject::invokeMethod(dock.assistant->rootObject(), "qmlCloseSignal"));
        QCOMPARE(host.ids(), QList<int> {47});
        QCOMPARE(host.requests().first().params.first().first, QVariant(false));
        QCOMPARE(dock.stack->currentIndex(), 0);
        // Closed, the page no longer listens.
        QVERIFY(QMetaObject::invokeMethod(dock.assistant->rootObject(), "qmlCloseSignal"));
        QCOMPARE(host.ids(), QList<int> {47});
    }

    void enableAssistantContainer()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        widget.enableAssistantContainer(false);
        QVERIFY(dock.assistantPage->isEnabled());
        dock.assistant->setSource(QUrl::fromLocalFile(m_sAssistantPath));
        QQuickItem* root = dock.assistant->rootObject();
        widget.enableAssistantContainer(false);
        QVERIFY(!dock.assistantPage->isEnabled());
        QVERIFY(!root->isEnabled());
        widget.enableAssistantContainer(true);
        QVERIFY(dock.assistantPage->isEnabled());
        QVERIFY(root->isEnabled());
        // The root already in the wanted state stops the change.
        root->setEnabled(false);
        widget.enableAssistantContainer(false);
        QVERIFY(dock.assistantPage->isEnabled());
    }

    void assistantSizeSetsMinimum()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        QVERIFY(QMetaObject::invokeMethod(&widget, "onAssistantSizeChanged",
                                          Q_ARG(QSize, QSize(520, 640))));
        QCOMPARE(dock.assistant->minimumSize(), QSize(520, 640));
    }

    void startButtonVisibility()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        widget.showStartAssistantButton(false);
        QVERIFY(dock.start->isHidden());
        widget.showStartAssistantButton(true);
        QVERIFY(!dock.start->isHidden());
    }

    void startStripSendsRequests()
    {
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Dock dock(&widget);
        RequestRecorder host(&widget);
        QObject* root = dock.start->rootObject();
        QVERIFY(QMetaObject::invokeMethod(root, "displayToolTip"));
        QObject* button = root->findChild<QObject*>(QStringLiteral("showAssistantBtn"));
        QVERIFY(QMetaObject::invokeMethod(button, "clicked"));
        QCOMPARE(host.ids(), (QList<int> {51, 47}));
    }

    void welcomeOkWithTickedBox()
    {
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage, true);
        auto widget = guidedWidget();
        Dock dock(widget.get());
        RequestRecorder host(widget.get());
        widget->showingWidget();
        QCOMPARE(dock.stack->currentIndex(), 2);
        QVERIFY(showWidget(widget.get()));
        QSignalSpy toolbox(widget.get(), &WidgetTree::enableToolbox);
        QObject* root = dock.welcome->rootObject();
        root->findChild<QObject*>(QStringLiteral("checkBox"))->setProperty("checked", true);
        QVERIFY(clickQml(dock.welcome, root->findChild<QObject*>(QStringLiteral("okBtn"))));
        QCOMPARE(host.ids(), QList<int> {47});
        QCOMPARE(dock.stack->currentIndex(), 1);
        QVERIFY(dock.view->isEnabled());
        QCOMPARE(toolbox.count(), 1);
        QCOMPARE(toolbox.first().first().toBool(), true);
        // The choice is stored and saved at once.
        Settings::WAppSettings reread;
        QVERIFY(reread.open(m_sSettingsPath));
        QCOMPARE(reread.find_setting(kGroup)->valueOf(kShowWelcomePage).toBool(), false);
    }

    void welcomeOkWithoutTickKeepsPage()
    {
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage, true);
        auto widget = guidedWidget();
        Dock dock(widget.get());
        RequestRecorder host(widget.get());
        widget->showingWidget();
        QVERIFY(showWidget(widget.get()));
        QObject* root = dock.welcome->rootObject();
        QVERIFY(clickQml(dock.welcome, root->findChild<QObject*>(QStringLiteral("okBtn"))));
        QCOMPARE(host.ids(), QList<int> {47});
        widget.reset();
        QCOMPARE(
            Settings::WAppSettings::instance()->find_setting(kGroup)->valueOf(kShowWelcomePage),
            QVariant(true));
    }

    void welcomeCloseSignalGivesDockBack()
    {
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage, true);
        QDockWidget holder;
        auto* widget = new WidgetTree(&holder, Qt::WindowFlags());
        holder.setWidget(widget);
        Utils::ProjectMode projectMode;
        widget->setResources(nullptr, &projectMode);
        QVERIFY(QMetaObject::invokeMethod(widget, "onFileTypeChanged",
                                          Q_ARG(AppSpecifficFileType, FileTypeGuidedTemplate)));
        Dock dock(widget);
        RequestRecorder host(widget);
        QSignalSpy welcomeVisible(widget, &WidgetTree::welcomePageVisible);
        widget->showingWidget();
        widget->shown();
        QCOMPARE(int(holder.features()), 0);
        QVERIFY(QMetaObject::invokeMethod(dock.welcome->rootObject(), "qmlCloseSignal"));
        QCOMPARE(dock.stack->currentIndex(), 0);
        QVERIFY(host.requests().isEmpty());
        QCOMPARE(int(holder.features()), 7);
        QCOMPARE(welcomeVisible.count(), 2);
        QCOMPARE(welcomeVisible.last().first().toBool(), false);
    }

    void destructorStoresDismissal_data()
    {
        QTest::addColumn<QVariant>("setting");
        QTest::addColumn<QVariant>("after");
        QTest::newRow("page off") << QVariant(false) << QVariant(false);
        QTest::newRow("page on") << QVariant(true) << QVariant(true);
        QTest::newRow("no group") << QVariant() << QVariant();
    }

    void destructorStoresDismissal()
    {
        QFETCH(QVariant, setting);
        QFETCH(QVariant, after);
        if (setting.isValid())
            Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage,
                                                                               QStringLiteral("x"));
        auto widget = std::make_unique<WidgetTree>(nullptr, Qt::WindowFlags());
        if (setting.isValid())
            Settings::WAppSettings::instance()->find_setting(kGroup)->setValueOf(kShowWelcomePage,
                                                                                 setting);
        widget.reset();
        const Settings::WAppSetting* group
            = Settings::WAppSettings::instance()->find_setting(kGroup);
        QCOMPARE(group != nullptr, after.isValid());
        if (group)
            QCOMPARE(group->valueOf(kShowWelcomePage), after);
    }

    void viewModeLeavesWelcomePage_data()
    {
        QTest::addColumn<bool>("welcome");
        QTest::addColumn<bool>("normalView");
        QTest::addColumn<int>("page");
        QTest::newRow("welcome, leaving normal view") << true << false << 0;
        QTest::newRow("welcome, normal view") << true << true << 2;
        QTest::newRow("no welcome") << false << false << 1;
    }

    void viewModeLeavesWelcomePage()
    {
        QFETCH(bool, welcome);
        QFETCH(bool, normalView);
        QFETCH(int, page);
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kShowWelcomePage,
                                                                           welcome);
        auto widget = guidedWidget();
        Dock dock(widget.get());
        RequestRecorder host(widget.get());
        widget->showingWidget();
        QSignalSpy toolbox(widget.get(), &WidgetTree::enableToolbox);
        widget->onViewModeChanged(normalView);
        QCOMPARE(dock.stack->currentIndex(), page);
        const bool left = welcome && !normalView;
        QCOMPARE(toolbox.count(), left ? 1 : 0);
        if (left) {
            QVERIFY(dock.view->isEnabled());
            QVERIFY(hasCursor(dock.treeHolder, Qt::ArrowCursor));
        }
    }

    void settingsSavedInfoOncePerProcess()
    {
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(
            QStringLiteral("ShowAssistantSettingsSaved"), true);
        WidgetTree widget(nullptr, Qt::WindowFlags());
        Utils::DialogAutomation::queueAnswer(Utils::DialogAutomation::InfoWithOption, false);
        QVERIFY(QMetaObject::invokeMethod(&widget, "qmlSettingsSavedInfo"));
        QCOMPARE(Utils::DialogAutomation::calls().size(), 1);
        const Utils::DialogAutomation::Call first = Utils::DialogAutomation::calls().first();
        QCOMPARE(first.m_eKind, Utils::DialogAutomation::InfoWithOption);
        QCOMPARE(
            first.m_slTexts,
            (QStringList {QStringLiteral("All settings saved."),
                          QStringLiteral("Don't show this message again"), QString(), QString()}));
        // Not declined: shown again.
        Utils::DialogAutomation::queueAnswer(Utils::DialogAutomation::InfoWithOption, true);
        QVERIFY(QMetaObject::invokeMethod(&widget, "qmlSettingsSavedInfo"));
        QCOMPARE(Utils::DialogAutomation::calls().size(), 2);
        Settings::WAppSettings reread;
        QVERIFY(reread.open(m_sSettingsPath));
        QCOMPARE(reread.find_setting(kGroup)
                     ->valueOf(QStringLiteral("ShowAssistantSettingsSaved"))
                     .toBool(),
                 false);
        // Declined: nothing more in this process, whatever the setting says now.
        Settings::WAppSettings::instance()->find_setting(kGroup)->setValueOf(
            QStringLiteral("ShowAssistantSettingsSaved"), true);
        QVERIFY(QMetaObject::invokeMethod(&widget, "qmlSettingsSavedInfo"));
        QCOMPARE(Utils::DialogAutomation::calls().size(), 2);
    }

private:
    std::unique_ptr<WidgetTree> guidedWidget()
    {
        auto widget = std::make_unique<WidgetTree>(nullptr, Qt::WindowFlags());
        widget->setResources(nullptr, &m_oProjectMode);
        QMetaObject::invokeMethod(widget.get(), "onFileTypeChanged",
                                  Q_ARG(AppSpecifficFileType, FileTypeGuidedJob));
        return widget;
    }

    // Clicks the middle of the QML item @p item as the mouse would; false when it is none.
    static bool clickQml(QQuickWidget* view, QObject* item)
    {
        auto* quickItem = qobject_cast<QQuickItem*>(item);
        if (!quickItem)
            return false;
        const QPointF centre
            = quickItem->mapToScene(QPointF(quickItem->width() / 2, quickItem->height() / 2));
        QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
        return true;
    }

    QTemporaryDir m_oDir;
    QString m_sSettingsPath;
    QString m_sAssistantPath;
    Utils::ProjectMode m_oProjectMode;
};

QTEST_MAIN(TestWidgetTreeModes)
#include "tst_widgettree_modes.moc"
