#include "navigator/nodeinfo.h"
#include "testsupport.h"

#include <QTest>

#include <string>
#include <vector>

using Helpers::NodeInfo;

namespace {

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

QStringList list(const std::vector<std::string>& values)
{
    QStringList result;
    for (const std::string& value : values)
        result << QString::fromStdString(value);
    return result;
}

} // namespace

class TestNodeInfo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void toString_data();
    void toString();
    void settersReplace();
    void reset();

    void tokens_data();
    void tokens();

    void nodeValue_data();
    void nodeValue();

    void keyWithoutValue_data();
    void keyWithoutValue();

    void readers_data();
    void readers();
    void readsWhatItWrites_data();
    void readsWhatItWrites();
};

void TestNodeInfo::initTestCase()
{
    TestSupport::failOnWarnings();
    // Nothing has set the id or the name yet in this process.
    QCOMPARE(text(NodeInfo::toString()), QString());
}

void TestNodeInfo::init()
{
    NodeInfo::reset();
}

void TestNodeInfo::toString_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("neither") << ""
                             << ""
                             << "";
    QTest::newRow("id only, no trailing separator") << "42"
                                                    << ""
                                                    << "ID:42";
    QTest::newRow("name only, no leading separator") << ""
                                                     << "Camera"
                                                     << "NAME:Camera";
    QTest::newRow("both") << "42"
                          << "Camera"
                          << "ID:42/NAME:Camera";
    QTest::newRow("blanks are written as given") << " 7 "
                                                 << "a b"
                                                 << "ID: 7 /NAME:a b";
}

void TestNodeInfo::toString()
{
    QFETCH(QString, id);
    QFETCH(QString, name);
    QFETCH(QString, expected);

    NodeInfo::setNodeID(id.toStdString());
    NodeInfo::setNodeName(name.toStdString());
    QCOMPARE(text(NodeInfo::toString()), expected);
}

void TestNodeInfo::settersReplace()
{
    NodeInfo::setNodeID("1");
    NodeInfo::setNodeName("first");
    NodeInfo::setNodeID("2");
    NodeInfo::setNodeName("second");
    QCOMPARE(text(NodeInfo::toString()), QStringLiteral("ID:2/NAME:second"));

    NodeInfo::setNodeID("");
    QCOMPARE(text(NodeInfo::toString()), QStringLiteral("NAME:second"));
    NodeInfo::setNodeID("3");
    NodeInfo::setNodeName("");
    QCOMPARE(text(NodeInfo::toString()), QStringLiteral("ID:3"));
}

void TestNodeInfo::reset()
{
    NodeInfo::setNodeID("5");
    NodeInfo::setNodeName("Tool");
    QCOMPARE(text(NodeInfo::toString()), QStringLiteral("ID:5/NAME:Tool"));
    NodeInfo::reset();
    QCOMPARE(text(NodeInfo::toString()), QString());
}

void TestNodeInfo::tokens_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<char>("separator");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("empty text") << "" << '/' << QStringList();
    QTest::newRow("one part") << "abc" << '/' << QStringList {"abc"};
    QTest::newRow("two parts") << "a/b" << '/' << QStringList {"a", "b"};
    QTest::newRow("trailing separator adds nothing") << "a/b/" << '/' << QStringList {"a", "b"};
    QTest::newRow("leading separator") << "/a" << '/' << QStringList {"", "a"};
    QTest::newRow("empty part in the middle") << "a//b" << '/' << QStringList {"a", "", "b"};
    QTest::newRow("separator alone") << "/" << '/' << QStringList {""};
    QTest::newRow("two separators") << "//" << '/' << QStringList {"", ""};
    QTest::newRow("trimmed on both sides") << " a \t/\nb  " << '/' << QStringList {"a", "b"};
    QTest::newRow("blank part becomes empty") << "a/   /b" << '/' << QStringList {"a", "", "b"};
    QTest::newRow("inner blanks stay") << " a b / c " << '/' << QStringList {"a b", "c"};
    QTest::newRow("other separator") << "ID : 4 : x" << ':' << QStringList {"ID", "4", "x"};
    QTest::newRow("other separators are text")
        << "ID:4/NAME:x" << ':' << QStringList {"ID", "4/NAME", "x"};
}

void TestNodeInfo::tokens()
{
    QFETCH(QString, input);
    QFETCH(char, separator);
    QFETCH(QStringList, expected);

    QCOMPARE(list(NodeInfo::tokens(input.toStdString(), separator)), expected);
}

void TestNodeInfo::nodeValue_data()
{
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");

    QTest::newRow("id") << "ID:42/NAME:Camera"
                        << "ID"
                        << "42";
    QTest::newRow("name") << "ID:42/NAME:Camera"
                          << "NAME"
                          << "Camera";
    QTest::newRow("missing key") << "ID:42"
                                 << "NAME"
                                 << "";
    QTest::newRow("empty info") << ""
                                << "ID"
                                << "";
    QTest::newRow("empty key") << ":5/ID:4"
                               << ""
                               << "";
    QTest::newRow("spaces around keys and values") << "  ID : 42 /\tNAME :  Camera 1  "
                                                   << "NAME"
                                                   << "Camera 1";
    QTest::newRow("exact comparison") << "id:42/Id:43"
                                      << "ID"
                                      << "";
    QTest::newRow("first part wins") << "ID:1/ID:2"
                                     << "ID"
                                     << "1";
    QTest::newRow("key in the middle of a part") << "x:ID:7/ID:8"
                                                 << "ID"
                                                 << "7";
    QTest::newRow("key as the first of three") << "ID:7:8"
                                               << "ID"
                                               << "7";
    QTest::newRow("empty value") << "ID:/NAME:x"
                                 << "ID"
                                 << "";
    QTest::newRow("empty parts are skipped") << "//ID:3"
                                             << "ID"
                                             << "3";
    QTest::newRow("other keys") << "A:1/B:2/C:3"
                                << "B"
                                << "2";
}

void TestNodeInfo::nodeValue()
{
    QFETCH(QString, info);
    QFETCH(QString, key);
    QFETCH(QString, expected);

    QCOMPARE(text(NodeInfo::nodeValue(info.toStdString(), key.toStdString())), expected);
}

void TestNodeInfo::keyWithoutValue_data()
{
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");

    // A pair that ends in its key reads as an empty value, and the search stops there.
    QTest::newRow("key alone") << "ID"
                               << "ID"
                               << "";
    QTest::newRow("key and separator") << "ID:"
                                       << "ID"
                                       << "";
    QTest::newRow("key alone, blanks") << "  ID  "
                                       << "ID"
                                       << "";
    QTest::newRow("key alone before a full pair") << "ID/ID:5"
                                                  << "ID"
                                                  << "";
    QTest::newRow("key alone after a full pair") << "NAME:x/ID"
                                                 << "ID"
                                                 << "";
    QTest::newRow("key alone, another key asked") << "ID/NAME:x"
                                                  << "NAME"
                                                  << "x";
    QTest::newRow("key read as a value ends the search") << "NAME:ID/ID:5"
                                                         << "ID"
                                                         << "";
    QTest::newRow("key at the end of three") << "a:b:ROLE"
                                             << "ROLE"
                                             << "";
}

void TestNodeInfo::keyWithoutValue()
{
    QFETCH(QString, info);
    QFETCH(QString, key);
    QFETCH(QString, expected);

    QCOMPARE(text(NodeInfo::nodeValue(info.toStdString(), key.toStdString())), expected);
}

void TestNodeInfo::readers_data()
{
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("role");

    QTest::newRow("full text") << "ID:42/NAME:Camera"
                               << "42"
                               << "Camera"
                               << "";
    QTest::newRow("no name") << "ID:42"
                             << "42"
                             << ""
                             << "";
    QTest::newRow("no id") << "NAME:Camera"
                           << ""
                           << "Camera"
                           << "";
    QTest::newRow("role from another writer") << "ID:1/ROLE:Reference/NAME:Edge"
                                              << "1"
                                              << "Edge"
                                              << "Reference";
    QTest::newRow("role only") << " ROLE : Master "
                               << ""
                               << ""
                               << "Master";
    QTest::newRow("empty") << ""
                           << ""
                           << ""
                           << "";
    QTest::newRow("key alone in each") << "ID/NAME/ROLE"
                                       << ""
                                       << ""
                                       << "";
}

void TestNodeInfo::readers()
{
    QFETCH(QString, info);
    QFETCH(QString, id);
    QFETCH(QString, name);
    QFETCH(QString, role);

    const std::string infoText = info.toStdString();
    QCOMPARE(text(NodeInfo::nodeID(infoText)), id);
    QCOMPARE(text(NodeInfo::nodeName(infoText)), name);
    QCOMPARE(text(NodeInfo::nodeRole(infoText)), role);
}

void TestNodeInfo::readsWhatItWrites_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");

    QTest::newRow("both") << "17"
                          << "Blob Finder";
    QTest::newRow("id only") << "17"
                             << "";
    QTest::newRow("name only") << ""
                               << "Blob Finder";
}

void TestNodeInfo::readsWhatItWrites()
{
    QFETCH(QString, id);
    QFETCH(QString, name);

    NodeInfo::setNodeID(id.toStdString());
    NodeInfo::setNodeName(name.toStdString());
    const std::string info = NodeInfo::toString();
    QCOMPARE(text(NodeInfo::nodeID(info)), id);
    QCOMPARE(text(NodeInfo::nodeName(info)), name);
    // The writer never adds a role.
    QCOMPARE(text(NodeInfo::nodeRole(info)), QString());
    QVERIFY(info.find("ROLE") == std::string::npos);
}

QTEST_APPLESS_MAIN(TestNodeInfo)

#include "tst_nodeinfo.moc"
