// First on purpose: this system header defines major() and minor() as macros, and the version
// must still compile after it.
#include <sys/sysmacros.h>

#include "testsupport.h"
#include "wutils/pluginversion.h"

#include <QTest>

#include <climits>
#include <string>
#include <type_traits>

using wutils::PluginVersion;

static_assert(std::is_polymorphic<PluginVersion>::value,
              "the text conversions are virtual so that a host subclass can replace them");

namespace {

// Shows the four fields in a failure message.
QString fields(const PluginVersion& version)
{
    return QStringLiteral("%1,%2,%3,%4")
        .arg(version.major)
        .arg(version.minor)
        .arg(version.patch)
        .arg(version.build);
}

// Replaces the text conversion, to show which operation the const form reaches.
class TaggedVersion : public PluginVersion
{
public:
    using PluginVersion::operator>>;
    bool operator>>(std::string& text) override
    {
        text = "tagged";
        return true;
    }
};

} // namespace

class TestPluginVersion : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void toText_data();
    void toText();
    void toTextReplacesTheTarget();
    void constToTextForwardsToTheFirstOperation();

    void fromText_data();
    void fromText();
    void constFromText_data();
    void constFromText();

    void descriptorVersion();
};

void TestPluginVersion::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestPluginVersion::toText_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("patch");
    QTest::addColumn<int>("build");
    QTest::addColumn<QString>("text");

    QTest::newRow("zeros") << 0 << 0 << 0 << 0 << "0.0.0";
    QTest::newRow("build left out") << 1 << 2 << 3 << 4 << "1.2.3";
    QTest::newRow("negative fields") << -1 << 20 << -300 << 7 << "-1.20.-300";
    QTest::newRow("int limits") << INT_MAX << INT_MIN << 0 << INT_MIN << "2147483647.-2147483648.0";
}

void TestPluginVersion::toText()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, patch);
    QFETCH(int, build);
    QFETCH(QString, text);

    PluginVersion version(major, minor, patch, build);
    std::string written;
    const bool empty = version >> written;
    QCOMPARE(QString::fromStdString(written), text);
    // The result is the emptiness of the target, so a successful conversion returns false.
    QCOMPARE(empty, false);
    QCOMPARE(fields(version), fields(PluginVersion(major, minor, patch, build)));

    const PluginVersion& constVersion = version;
    std::string constWritten = "previous";
    QCOMPARE(constVersion >> constWritten, false);
    QCOMPARE(QString::fromStdString(constWritten), text);
}

void TestPluginVersion::toTextReplacesTheTarget()
{
    PluginVersion version(4, 5, 6, 7);
    std::string text = "some earlier text";
    QCOMPARE(version >> text, false);
    QCOMPARE(QString::fromStdString(text), QStringLiteral("4.5.6"));
}

void TestPluginVersion::constToTextForwardsToTheFirstOperation()
{
    const TaggedVersion version;
    const PluginVersion& base = version;
    std::string text;
    QCOMPARE(base >> text, true);
    QCOMPARE(QString::fromStdString(text), QStringLiteral("tagged"));
}

void TestPluginVersion::fromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("expected");

    // Every row starts from 11,12,13,14.
    QTest::newRow("four numbers") << "1.2.3.4" << true << "1,2,3,4";
    QTest::newRow("three numbers keep the build") << "1.2.3" << true << "1,2,3,14";
    QTest::newRow("two numbers") << "1.2" << false << "11,12,13,14";
    QTest::newRow("one number") << "1" << false << "11,12,13,14";
    QTest::newRow("empty") << "" << false << "11,12,13,14";
    QTest::newRow("no number") << "abc" << false << "11,12,13,14";
    QTest::newRow("third number missing") << "1.2.x" << false << "11,12,13,14";
    QTest::newRow("wrong separator") << "1.2,3" << false << "11,12,13,14";
    QTest::newRow("empty field") << "1..2.3" << false << "11,12,13,14";
    QTest::newRow("fourth not a number") << "1.2.3.x" << true << "1,2,3,14";
    QTest::newRow("trailing separator") << "1.2.3." << true << "1,2,3,14";
    QTest::newRow("trailing text") << "5.6.7.8 and more" << true << "5,6,7,8";
    QTest::newRow("fifth number ignored") << "1.2.3.4.5" << true << "1,2,3,4";
    QTest::newRow("blanks before a number") << " 7. 8.\t9" << true << "7,8,9,14";
    QTest::newRow("blank before a separator") << "7 .8.9" << false << "11,12,13,14";
    QTest::newRow("signs") << "-1.+2.-3.-4" << true << "-1,2,-3,-4";
    QTest::newRow("sign without digits") << "1.2.-" << false << "11,12,13,14";
    QTest::newRow("int limits") << "2147483647.-2147483648.0.1" << true
                                << "2147483647,-2147483648,0,1";
    QTest::newRow("hexadecimal is not read") << "0x1.2.3" << false << "11,12,13,14";
}

void TestPluginVersion::fromText()
{
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    QFETCH(QString, expected);

    PluginVersion version(11, 12, 13, 14);
    QCOMPARE(version << text.toStdString(), accepted);
    QCOMPARE(fields(version), expected);
}

void TestPluginVersion::constFromText_data()
{
    fromText_data();
}

void TestPluginVersion::constFromText()
{
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    QFETCH(QString, expected);

    const PluginVersion version(11, 12, 13, 14);
    QCOMPARE(version << text.toStdString(), accepted);
    QCOMPARE(fields(version), expected);
}

void TestPluginVersion::descriptorVersion()
{
    // The plug-in announces itself as 1.0.0 build 22780; the build number is not in the text.
    PluginVersion version(1, 0, 0, 22780);
    std::string text;
    QCOMPARE(version >> text, false);
    QCOMPARE(QString::fromStdString(text), QStringLiteral("1.0.0"));
    QCOMPARE(version.build, 22780);

    PluginVersion parsed(0, 0, 0, 22780);
    QCOMPARE(parsed << text, true);
    QCOMPARE(fields(parsed), fields(version));
}

QTEST_APPLESS_MAIN(TestPluginVersion)

#include "tst_pluginversion.moc"
