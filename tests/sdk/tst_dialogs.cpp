#include "sdk/dialogautomation.h"
#include "sdk/filedialog.h"
#include "sdk/filedialogprovider.h"
#include "sdk/wmessagebox.h"

#include "testsupport.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

using Utils::DialogAutomation;
using Utils::WMessageBox;

namespace {

// Waits, from the event loop of the modal dialog about to open, for that dialog and hands it
// to @p handle, which is to close it. Polling finds the dialog whatever its kind. A dialog the
// handler leaves open (a failed check returns early) is closed all the same, and so is any box
// it opens in turn, so that no test can wait for a person.
void handleNextModal(std::function<void(QWidget*)> handle)
{
    auto* poll = new QTimer(qApp);
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, handle]() mutable {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        if (handle) {
            const auto once = std::move(handle);
            handle = nullptr;
            once(modal);
        } else if (auto* dialog = qobject_cast<QDialog*>(modal)) {
            dialog->reject();
        } else {
            modal->close();
        }
        // Done once nothing modal is left; polling on could catch the next test's dialog.
        if (!QApplication::activeModalWidget()) {
            poll->stop();
            poll->deleteLater();
        }
    });
    poll->start();
}

// Switches automation off so that the next dialog really shows.
void showRealDialogs()
{
    DialogAutomation::setEnabled(false);
}

// Writes @p name into the dialog's file name field. Typing key by key would open the
// completer's popup, which the offscreen platform can neither raise nor give the keyboard to.
void typeFileName(QFileDialog* dialog, const QString& name)
{
    auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QVERIFY(field);
    field->setText(name);
}

QList<QPair<QString, QString>> scriptFilters()
{
    return {{QStringLiteral("Halcon Script"), QStringLiteral("*.hdev")},
            {QStringLiteral("Text"), QStringLiteral("*.txt *.log")}};
}

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        // The test runner switches automation on for every test through the environment.
        QCOMPARE(DialogAutomation::bIsEnabled(),
                 qEnvironmentVariable("SDK_AUTOMATIC_DIALOGS") == QLatin1String("1"));
    }

    void init()
    {
        DialogAutomation::setEnabled(true);
        DialogAutomation::clear();
    }

    void cleanup()
    {
        DialogAutomation::setEnabled(true);
        DialogAutomation::clear();
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void setEnabledSwitchesEitherWay()
    {
        DialogAutomation::setEnabled(false);
        QVERIFY(!DialogAutomation::bIsEnabled());
        DialogAutomation::setEnabled(true);
        QVERIFY(DialogAutomation::bIsEnabled());
    }

    void messageBoxesAreRecorded_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("warning") << 0 << int(DialogAutomation::Warning)
                                 << QStringList {QStringLiteral("The item is not deletable !"),
                                                 QString()};
        QTest::newRow("info") << 1 << int(DialogAutomation::Info)
                              << QStringList {QStringLiteral("Offline."), QString(),
                                              QStringLiteral("detail")};
        QTest::newRow("critical") << 2 << int(DialogAutomation::Critical)
                                  << QStringList {QStringLiteral("Validation failed!"),
                                                  QStringLiteral("Out of range")};
    }

    void messageBoxesAreRecorded()
    {
        QFETCH(int, which);
        QFETCH(int, kind);
        QFETCH(QStringList, texts);
        QWidget parent;
        switch (which) {
        case 0:
            WMessageBox::warning(texts.at(0), texts.at(1), &parent);
            break;
        case 1:
            WMessageBox::info(texts.at(0), texts.at(1), &parent, texts.at(2));
            break;
        default:
            WMessageBox::critical(texts.at(0), texts.at(1), &parent);
            break;
        }
        const QList<DialogAutomation::Call> calls = DialogAutomation::calls();
        QCOMPARE(calls.size(), 1);
        QCOMPARE(int(calls.at(0).m_eKind), kind);
        QCOMPARE(calls.at(0).m_slTexts, texts);
        QCOMPARE(calls.at(0).m_poParent.data(), &parent);
        QVERIFY(QApplication::topLevelWidgets().size() <= 1);
    }

    void infoWithOptionAnswersFromTheQueue()
    {
        QVERIFY(!WMessageBox::infoWithOption(QStringLiteral("All settings saved."),
                                             QStringLiteral("Don't show this message again")));
        DialogAutomation::queueAnswer(DialogAutomation::InfoWithOption, true);
        DialogAutomation::queueAnswer(DialogAutomation::InfoWithOption, false);
        QVERIFY(WMessageBox::infoWithOption(QStringLiteral("a"), QStringLiteral("b")));
        QVERIFY(!WMessageBox::infoWithOption(QStringLiteral("a"), QStringLiteral("b")));
        QVERIFY(!WMessageBox::infoWithOption(QStringLiteral("a"), QStringLiteral("b")));

        const QList<DialogAutomation::Call> calls = DialogAutomation::calls();
        QCOMPARE(calls.size(), 4);
        QCOMPARE(
            calls.at(0).m_slTexts,
            (QStringList {QStringLiteral("All settings saved."),
                          QStringLiteral("Don't show this message again"), QString(), QString()}));
        QCOMPARE(calls.at(0).m_oAnswer, QVariant(false));
        QCOMPARE(calls.at(1).m_oAnswer, QVariant(true));
        QCOMPARE(calls.at(0).m_poParent.data(), nullptr);
    }

    void answersAreQueuedPerKind()
    {
        const QUrl chosen = QUrl::fromLocalFile(QStringLiteral("/tmp/model.hdev"));
        DialogAutomation::queueAnswer(DialogAutomation::InfoWithOption, true);
        DialogAutomation::queueAnswer(DialogAutomation::OpenFile, chosen);
        FileDialog dialog(FileDialogProvider({}, scriptFilters(), 0), nullptr);
        QCOMPARE(dialog.getOpenFileUrl(), chosen);
        WMessageBox::warning(QStringLiteral("w"));
        QVERIFY(WMessageBox::infoWithOption(QStringLiteral("a"), QStringLiteral("b")));
    }

    void fileDialogsAreRecorded()
    {
        QWidget parent;
        FileDialog dialog(
            FileDialogProvider(FileDialogProvider::createCommonUrls(false, false, true),
                               scriptFilters(), 2),
            &parent);
        QVERIFY(dialog.getOpenFileUrl().isEmpty());
        const QUrl target = QUrl::fromLocalFile(QStringLiteral("/tmp/out.hdev"));
        DialogAutomation::queueAnswer(DialogAutomation::SaveFile, target);
        QCOMPARE(dialog.getSaveFileUrl(FileDialog::AcceptSave, QStringLiteral("script.hdev")),
                 target);
        QVERIFY(dialog.getSaveFileUrl(FileDialog::AcceptSave, QString()).isEmpty());

        const QList<DialogAutomation::Call> calls = DialogAutomation::calls();
        QCOMPARE(calls.size(), 3);
        QCOMPARE(calls.at(0).m_eKind, DialogAutomation::OpenFile);
        QCOMPARE(calls.at(0).m_slTexts,
                 (QStringList {QStringLiteral("Halcon Script (*.hdev)"),
                               QStringLiteral("Text (*.txt *.log)")}));
        QCOMPARE(calls.at(0).m_poParent.data(), &parent);
        QCOMPARE(calls.at(1).m_eKind, DialogAutomation::SaveFile);
        QCOMPARE(calls.at(1).m_slTexts.last(), QStringLiteral("script.hdev"));
        QCOMPARE(calls.at(1).m_oAnswer.toUrl(), target);
    }

    void recordedParentDoesNotDangle()
    {
        auto* parent = new QWidget;
        WMessageBox::warning(QStringLiteral("w"), QString(), parent);
        delete parent;
        QCOMPARE(DialogAutomation::calls().at(0).m_poParent.data(), nullptr);
    }

    void clearForgetsCallsAndAnswers()
    {
        DialogAutomation::queueAnswer(DialogAutomation::InfoWithOption, true);
        WMessageBox::warning(QStringLiteral("w"));
        DialogAutomation::clear();
        QVERIFY(DialogAutomation::calls().isEmpty());
        QVERIFY(!WMessageBox::infoWithOption(QStringLiteral("a"), QStringLiteral("b")));
    }

    void realWarningIsShownAndClosed()
    {
        showRealDialogs();
        QString shownText;
        QString shownInformative;
        handleNextModal([&](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            QVERIFY(box);
            shownText = box->text();
            shownInformative = box->informativeText();
            box->button(QMessageBox::Ok)->click();
        });
        WMessageBox::warning(QStringLiteral("Error loading the assistant of the module !"),
                             QStringLiteral("file.qml:3: error\n"));
        QCOMPARE(shownText, QStringLiteral("Error loading the assistant of the module !"));
        QCOMPARE(shownInformative, QStringLiteral("file.qml:3: error\n"));
        QVERIFY(DialogAutomation::calls().isEmpty());
    }

    void realInfoWithOptionReturnsTheTick_data()
    {
        QTest::addColumn<bool>("tick");
        QTest::newRow("ticked") << true;
        QTest::newRow("not ticked") << false;
    }

    void realInfoWithOptionReturnsTheTick()
    {
        QFETCH(bool, tick);
        showRealDialogs();
        QString optionText;
        QString detail;
        handleNextModal([&](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            QVERIFY(box && box->checkBox());
            optionText = box->checkBox()->text();
            detail = box->detailedText();
            box->checkBox()->setChecked(tick);
            box->button(QMessageBox::Ok)->click();
        });
        const bool ticked = WMessageBox::infoWithOption(
            QStringLiteral("All settings saved."), QStringLiteral("Don't show again"), QString(),
            nullptr, QStringLiteral("details"));
        QCOMPARE(ticked, tick);
        QCOMPARE(optionText, QStringLiteral("Don't show again"));
        QCOMPARE(detail, QStringLiteral("details"));
    }

    void realCriticalUsesTheTitle()
    {
        showRealDialogs();
        QString title;
        handleNextModal([&](QWidget* modal) {
            title = modal->windowTitle();
            modal->close();
        });
        WMessageBox::critical(QStringLiteral("Validation failed!"), QStringLiteral("3 > 2"));
        QCOMPARE(title, QStringLiteral("Validation failed!"));
    }

    void realOpenFileDialog()
    {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QString file = folder.filePath(QStringLiteral("script.hdev"));
        QFile script(file);
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.close();

        showRealDialogs();
        const QList<QUrl> places {QUrl::fromLocalFile(folder.path())};
        QList<QUrl> shownPlaces;
        QStringList shownFilters;
        handleNextModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            QVERIFY(dialog);
            shownPlaces = dialog->sidebarUrls();
            shownFilters = dialog->nameFilters();
            dialog->setDirectory(folder.path());
            typeFileName(dialog, QStringLiteral("script.hdev"));
            // QFileDialog hides accept(); through the base it still runs its own override.
            static_cast<QDialog*>(dialog)->accept();
        });
        FileDialog dialog(FileDialogProvider(places, scriptFilters(), 0), nullptr);
        QCOMPARE(dialog.getOpenFileUrl(), QUrl::fromLocalFile(file));
        QCOMPARE(shownPlaces, places);
        QCOMPARE(shownFilters,
                 (QStringList {QStringLiteral("Halcon Script (*.hdev)"),
                               QStringLiteral("Text (*.txt *.log)")}));
    }

    void realFileDialogCancelled()
    {
        showRealDialogs();
        handleNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            QVERIFY(dialog);
            dialog->reject();
        });
        FileDialog dialog(FileDialogProvider({}, {}, -1), nullptr);
        QVERIFY(dialog.getSaveFileUrl(FileDialog::AcceptSave, QStringLiteral("x.txt")).isEmpty());
    }

    void realSaveDialogAddsTheFilterSuffix()
    {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        showRealDialogs();
        handleNextModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            QVERIFY(dialog);
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
            dialog->setDirectory(folder.path());
            typeFileName(dialog, QStringLiteral("exported"));
            // QFileDialog hides accept(); through the base it still runs its own override.
            static_cast<QDialog*>(dialog)->accept();
        });
        FileDialog dialog(FileDialogProvider({}, scriptFilters(), 0), nullptr);
        const QUrl url = dialog.getSaveFileUrl(FileDialog::AcceptSave, QStringLiteral("exported"));
        QCOMPARE(
            url,
            QUrl::fromLocalFile(QDir(folder.path()).filePath(QStringLiteral("exported.hdev"))));
    }

    void commonUrls_data()
    {
        QTest::addColumn<bool>("pictures");
        QTest::addColumn<bool>("downloads");
        QTest::addColumn<bool>("documents");
        QTest::newRow("none") << false << false << false;
        QTest::newRow("documents") << false << false << true;
        QTest::newRow("pictures") << true << false << false;
        QTest::newRow("all") << true << true << true;
    }

    void commonUrls()
    {
        QFETCH(bool, pictures);
        QFETCH(bool, downloads);
        QFETCH(bool, documents);
        const auto place = [](QStandardPaths::StandardLocation location) {
            return QUrl::fromLocalFile(QDir::cleanPath(QStandardPaths::writableLocation(location)));
        };
        const QList<QUrl> urls
            = FileDialogProvider::createCommonUrls(pictures, downloads, documents);
        QCOMPARE(urls.first(), QUrl::fromLocalFile(QDir::cleanPath(QDir::homePath())));
        QVERIFY(urls.contains(place(QStandardPaths::DesktopLocation)));
        QVERIFY(urls.contains(QUrl::fromLocalFile(QDir::rootPath())));
        QCOMPARE(urls.contains(place(QStandardPaths::DocumentsLocation)),
                 documents || place(QStandardPaths::DocumentsLocation) == urls.first()
                     || place(QStandardPaths::DocumentsLocation)
                         == place(QStandardPaths::DesktopLocation));
        if (pictures)
            QVERIFY(urls.contains(place(QStandardPaths::PicturesLocation)));
        if (downloads)
            QVERIFY(urls.contains(place(QStandardPaths::DownloadLocation)));
        // No place twice.
        for (const QUrl& url : urls)
            QCOMPARE(urls.count(url), 1);
    }

    void providerFilters_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("expected");
        QTest::newRow("first") << 0 << QStringLiteral("Halcon Script (*.hdev)");
        QTest::newRow("second") << 1 << QStringLiteral("Text (*.txt *.log)");
        QTest::newRow("none chosen") << -1 << QStringLiteral("Halcon Script (*.hdev)");
        QTest::newRow("past the end") << 2 << QStringLiteral("Halcon Script (*.hdev)");
    }

    void providerFilters()
    {
        QFETCH(int, selected);
        QFETCH(QString, expected);
        const FileDialogProvider provider({}, scriptFilters(), selected);
        QCOMPARE(provider.iSelectedFilter(), selected);
        QCOMPARE(provider.filters(), scriptFilters());
        QCOMPARE(provider.nameFilters().size(), 2);
        QCOMPARE(provider.selectedNameFilter(), expected);
    }

    void providerWithoutFiltersOffersAllFiles()
    {
        const FileDialogProvider provider({QUrl::fromLocalFile(QStringLiteral("/"))}, {}, -1);
        QCOMPARE(provider.nameFilters(), QStringList {QStringLiteral("All Files (*)")});
        QCOMPARE(provider.selectedNameFilter(), QStringLiteral("All Files (*)"));
        QCOMPARE(provider.urls(), QList<QUrl> {QUrl::fromLocalFile(QStringLiteral("/"))});
    }
};

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
