#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include "testsupport.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>
#include <sys/stat.h>

using Settings::WAppSetting;
using Settings::WAppSettings;

namespace {

const char* const dieArgument = "--save-then-die";

// The child process of savedValuesSurviveACrash: saves, changes more without saving, and
// then ends without any cleanup, as a crash would.
int saveThenDie(const QString& filePath, const QString& marker)
{
    WAppSettings settings;
    settings.open(filePath);
    WAppSetting* group = settings.addSetting(QStringLiteral("SHOW_WINDOWS"));
    group->setValueOf(QStringLiteral("ShowWelcomePage"), false);
    group->setValueOf(QStringLiteral("Marker"), marker);
    if (!settings.save())
        return 2;
    group->setValueOf(QStringLiteral("Marker"), QStringLiteral("changed after the save"));
    group->setValueOf(QStringLiteral("Unsaved"), 1);
    std::_Exit(3);
}

ino_t inodeOf(const QString& path)
{
    struct stat info = {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return 0;
    return info.st_ino;
}

} // namespace

class TestWAppSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        QVERIFY(m_oFolder.isValid());
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void missingGroupIsNull()
    {
        WAppSettings settings;
        QCOMPARE(settings.find_setting(QStringLiteral("SHOW_WINDOWS")), nullptr);
        WAppSetting* group = settings.addSetting(QStringLiteral("SHOW_WINDOWS"));
        QVERIFY(group);
        QCOMPARE(group->name(), QStringLiteral("SHOW_WINDOWS"));
        QCOMPARE(settings.find_setting(QStringLiteral("SHOW_WINDOWS")), group);
        QCOMPARE(settings.addSetting(QStringLiteral("SHOW_WINDOWS")), group);
        QCOMPARE(settings.find_setting(QStringLiteral("PROPERTY_EDITOR")), nullptr);
        QCOMPARE(settings.groups(), QStringList {QStringLiteral("SHOW_WINDOWS")});
    }

    void valueOfGivesTheDefaultForAMissingKey()
    {
        WAppSettings settings;
        WAppSetting* group = settings.addSetting(QStringLiteral("PROPERTY_EDITOR"));
        QCOMPARE(group->valueOf(QStringLiteral("SplitterPos"), 120).toInt(), 120);
        QVERIFY(!group->valueOf(QStringLiteral("SplitterPos"), QVariant()).isValid());
        group->setValueOf(QStringLiteral("SplitterPos"), 200);
        QCOMPARE(group->valueOf(QStringLiteral("SplitterPos"), 120).toInt(), 200);
        QVERIFY(group->contains(QStringLiteral("SplitterPos")));
        group->setValueOf(QStringLiteral("SplitterPos"), QVariant());
        QVERIFY(!group->contains(QStringLiteral("SplitterPos")));
    }

    void unsavedChangesAreTracked()
    {
        WAppSettings settings;
        settings.open(path(QStringLiteral("tracked.ini")));
        QVERIFY(!settings.bHasUnsavedChanges());
        WAppSetting* group = settings.addSetting(QStringLiteral("G"));
        QVERIFY(settings.bHasUnsavedChanges());
        QVERIFY(settings.save());
        QVERIFY(!settings.bHasUnsavedChanges());
        group->setValueOf(QStringLiteral("k"), 1);
        QVERIFY(settings.bHasUnsavedChanges());
        QVERIFY(settings.save());
        group->setValueOf(QStringLiteral("k"), 1);
        QVERIFY(!settings.bHasUnsavedChanges());
    }

    void savedValuesSurviveANewInstance_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("expected");
        QTest::newRow("false") << QVariant(false) << QVariant(false);
        QTest::newRow("true") << QVariant(true) << QVariant(true);
        QTest::newRow("int") << QVariant(312) << QVariant(312);
        QTest::newRow("text") << QVariant(QStringLiteral("a, b = c"))
                              << QVariant(QStringLiteral("a, b = c"));
        QTest::newRow("list") << QVariant(QStringList {QStringLiteral("x"), QStringLiteral("y")})
                              << QVariant(QStringList {QStringLiteral("x"), QStringLiteral("y")});
    }

    void savedValuesSurviveANewInstance()
    {
        QFETCH(QVariant, value);
        QFETCH(QVariant, expected);
        const QString file = path(QStringLiteral("survive-%1.ini").arg(QTest::currentDataTag()));
        {
            WAppSettings settings;
            QVERIFY(settings.open(file));
            QVERIFY(settings.groups().isEmpty());
            settings.addSetting(QStringLiteral("SHOW_WINDOWS"))
                ->setValueOf(QStringLiteral("Value"), value);
            QVERIFY(settings.save());
        }
        QVERIFY(QFile::exists(file));
        WAppSettings reopened;
        QVERIFY(reopened.open(file));
        WAppSetting* group = reopened.find_setting(QStringLiteral("SHOW_WINDOWS"));
        QVERIFY(group);
        QVariant read = group->valueOf(QStringLiteral("Value"), QVariant());
        // The file keeps text: a value compares equal once converted to the type it had.
        QVERIFY(read.convert(expected.userType()));
        QCOMPARE(read, expected);
    }

    void unsavedChangesAreLostButTheFileStays()
    {
        const QString file = path(QStringLiteral("unsaved.ini"));
        {
            WAppSettings settings;
            settings.open(file);
            WAppSetting* group = settings.addSetting(QStringLiteral("SHOW_WINDOWS"));
            group->setValueOf(QStringLiteral("ShowWelcomePage"), true);
            QVERIFY(settings.save());
            group->setValueOf(QStringLiteral("ShowWelcomePage"), false);
            group->setValueOf(QStringLiteral("Extra"), 5);
            settings.addSetting(QStringLiteral("PROPERTY_EDITOR"));
            QVERIFY(settings.bHasUnsavedChanges());
        }
        WAppSettings reopened;
        QVERIFY(reopened.open(file));
        QCOMPARE(reopened.groups(), QStringList {QStringLiteral("SHOW_WINDOWS")});
        WAppSetting* group = reopened.find_setting(QStringLiteral("SHOW_WINDOWS"));
        QVERIFY(group);
        QCOMPARE(group->valueOf(QStringLiteral("ShowWelcomePage"), QVariant()).toBool(), true);
        QVERIFY(!group->contains(QStringLiteral("Extra")));
    }

    void savedValuesSurviveACrash()
    {
        const QString file = path(QStringLiteral("crash.ini"));
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QString::fromLatin1(dieArgument), file, QStringLiteral("saved before")});
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 3);

        WAppSettings settings;
        QVERIFY(settings.open(file));
        WAppSetting* group = settings.find_setting(QStringLiteral("SHOW_WINDOWS"));
        QVERIFY(group);
        QCOMPARE(group->valueOf(QStringLiteral("Marker"), QVariant()).toString(),
                 QStringLiteral("saved before"));
        QCOMPARE(group->valueOf(QStringLiteral("ShowWelcomePage"), true).toBool(), false);
        QVERIFY(!group->contains(QStringLiteral("Unsaved")));
    }

    void saveReplacesTheFileInOneStep()
    {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QString file = folder.filePath(QStringLiteral("settings.ini"));
        WAppSettings settings;
        settings.open(file);
        WAppSetting* group = settings.addSetting(QStringLiteral("G"));
        group->setValueOf(QStringLiteral("k"), 1);
        QVERIFY(settings.save());
        const ino_t before = inodeOf(file);
        QVERIFY(before != 0);

        group->setValueOf(QStringLiteral("k"), 2);
        QVERIFY(settings.save());
        // A new file was renamed over the old one: nobody ever sees a half-written file.
        QVERIFY(inodeOf(file) != before);
        // Nothing is left beside it: no temporary file and no lock.
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList {QStringLiteral("settings.ini")});
    }

    void saveWithoutFileFails()
    {
        WAppSettings settings;
        settings.addSetting(QStringLiteral("G"))->setValueOf(QStringLiteral("k"), 1);
        QVERIFY(settings.filePath().isEmpty());
        QVERIFY(!settings.save());
        QVERIFY(settings.bHasUnsavedChanges());
    }

    void saveThatCannotWriteKeepsTheChanges()
    {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        // A file where the folder should be: the settings file cannot be made under it.
        QFile blocker(folder.filePath(QStringLiteral("blocker")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        WAppSettings settings;
        settings.open(folder.filePath(QStringLiteral("blocker/settings.ini")));
        settings.addSetting(QStringLiteral("G"))->setValueOf(QStringLiteral("k"), 1);
        QVERIFY(!settings.save());
        QVERIFY(settings.bHasUnsavedChanges());
    }

    void removedKeysAndGroupsLeaveTheFile()
    {
        const QString file = path(QStringLiteral("removed.ini"));
        WAppSettings settings;
        settings.open(file);
        settings.addSetting(QStringLiteral("Keep"))->setValueOf(QStringLiteral("a"), 1);
        settings.addSetting(QStringLiteral("Drop"))->setValueOf(QStringLiteral("b"), 2);
        QVERIFY(settings.save());
        settings.removeSetting(QStringLiteral("Drop"));
        settings.find_setting(QStringLiteral("Keep"))->setValueOf(QStringLiteral("a"), QVariant());
        settings.find_setting(QStringLiteral("Keep"))->setValueOf(QStringLiteral("c"), 3);
        QVERIFY(settings.save());

        WAppSettings reopened;
        reopened.open(file);
        QCOMPARE(reopened.groups(), QStringList {QStringLiteral("Keep")});
        QCOMPARE(reopened.find_setting(QStringLiteral("Keep"))->keys(),
                 QStringList {QStringLiteral("c")});
    }

    void openKeepsTheObjectsOfGroupsInTheFile()
    {
        const QString file = path(QStringLiteral("reopen.ini"));
        {
            WAppSettings writer;
            writer.open(file);
            writer.addSetting(QStringLiteral("SHOW_WINDOWS"))
                ->setValueOf(QStringLiteral("ShowWelcomePage"), false);
            QVERIFY(writer.save());
        }
        WAppSettings settings;
        WAppSetting* held = settings.addSetting(QStringLiteral("SHOW_WINDOWS"));
        settings.addSetting(QStringLiteral("NotInFile"));
        QVERIFY(settings.open(file));
        QCOMPARE(settings.find_setting(QStringLiteral("SHOW_WINDOWS")), held);
        QCOMPARE(held->valueOf(QStringLiteral("ShowWelcomePage"), true).toBool(), false);
        QCOMPARE(settings.find_setting(QStringLiteral("NotInFile")), nullptr);
        QVERIFY(!settings.bHasUnsavedChanges());
    }

    void instanceIsProcessWide()
    {
        WAppSettings* settings = WAppSettings::instance();
        QVERIFY(settings);
        QCOMPARE(WAppSettings::instance(), settings);
        const QString file = path(QStringLiteral("instance.ini"));
        QVERIFY(settings->open(file));
        QCOMPARE(settings->filePath(), file);
        settings->addSetting(QStringLiteral("SHOW_WINDOWS"))
            ->setValueOf(QStringLiteral("ShowAssistantSettingsSaved"), false);
        QVERIFY(WAppSettings::instance()->save());

        WAppSettings other;
        other.open(file);
        QVERIFY(other.find_setting(QStringLiteral("SHOW_WINDOWS")));
        QVERIFY(settings->open(QString()));
        QVERIFY(settings->groups().isEmpty());
    }

private:
    QString path(const QString& name) const { return m_oFolder.filePath(name); }

    QTemporaryDir m_oFolder;
};

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], dieArgument) == 0)
        return saveThenDie(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    QApplication application(argc, argv);
    TestWAppSettings test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_wappsettings.moc"
