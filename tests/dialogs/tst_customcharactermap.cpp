#include "dialogs/customcharactermap.h"

#include "testsupport.h"

#include <QGlyphRun>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QRawFont>
#include <QTextLayout>
#include <QTest>

class TestCustomCharacterMap : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void tableRows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("character");
        QTest::addColumn<int>("replacement");
        const struct
        {
            const char* name;
            int character;
            int replacement;
        } expected[] = {
            {"SOH", 1, 0x2401},  {"STX", 2, 0x2402},  {"ETX", 3, 0x2403},  {"EOT", 4, 0x2404},
            {"ENQ", 5, 0x2405},  {"ACK", 6, 0x2406},  {"BEL", 7, 0x2407},  {"BS", 8, 0x2408},
            {"HT", 9, 0x2409},   {"LF", 10, 0x240A},  {"VT", 11, 0x240B},  {"FF", 12, 0x240C},
            {"CR", 13, 0x240D},  {"S0", 14, 0x240E},  {"S1", 15, 0x240F},  {"DLE", 16, 0x2410},
            {"DC1", 17, 0x2411}, {"DC2", 18, 0x2412}, {"DC3", 19, 0x2413}, {"DC4", 20, 0x2414},
            {"NAK", 21, 0x2415}, {"SYN", 22, 0x2416}, {"ETB", 23, 0x2417}, {"CAN", 24, 0x2418},
            {"EM", 25, 0x2419},  {"SUB", 26, 0x241A}, {"ESC", 27, 0x241B}, {"FS", 28, 0x241C},
            {"GS", 28, 0x241D},  {"RS", 30, 0x241E},  {"US", 31, 0x241F},  {"DEL", 127, 0x2421},
        };
        int row = 0;
        for (const auto& item : expected) {
            QTest::addRow("%d %s", row, item.name)
                << row << QString::fromLatin1(item.name) << item.character << item.replacement;
            ++row;
        }
    }

    void tableRows()
    {
        QFETCH(int, row);
        QFETCH(QString, name);
        QFETCH(int, character);
        QFETCH(int, replacement);
        const QList<CustomCharacterMap::CharMapItem> mapping = CustomCharacterMap::getMapping();
        QCOMPARE(mapping.size(), 32);
        const CustomCharacterMap::CharMapItem& item = mapping.at(row);
        QCOMPARE(item.name.userType(), int(QMetaType::QString));
        QCOMPARE(item.character.userType(), int(QMetaType::QChar));
        QCOMPARE(item.replacement.userType(), int(QMetaType::QChar));
        QCOMPARE(item.name.toString(), name);
        QCOMPARE(int(item.character.toChar().unicode()), character);
        QCOMPARE(int(item.replacement.toChar().unicode()), replacement);
    }

    void initializeTwiceKeepsOneTable()
    {
        CustomCharacterMap::initialize();
        CustomCharacterMap::initialize();
        QCOMPARE(CustomCharacterMap::getMapping().size(), 32);
    }

    void characterConversions_data()
    {
        QTest::addColumn<int>("character");
        QTest::addColumn<int>("symbol");
        QTest::addColumn<int>("characterOfSymbol");
        for (int c = 1; c < 32; ++c) {
            if (c == 29)
                continue;
            QTest::addRow("%d", c) << c << 0x2400 + c << c;
        }
        QTest::newRow("127") << 127 << 0x2421 << 127;
    }

    void characterConversions()
    {
        QFETCH(int, character);
        QFETCH(int, symbol);
        QFETCH(int, characterOfSymbol);
        QCOMPARE(int(CustomCharacterMap::toReplacementChar(QChar(character)).unicode()), symbol);
        QCOMPARE(int(CustomCharacterMap::fromReplacementChar(QChar(symbol)).unicode()),
                 characterOfSymbol);
        const QString text = QStringLiteral("x") + QChar(character) + QStringLiteral("y");
        const QString shown = QStringLiteral("x") + QChar(symbol) + QStringLiteral("y");
        QCOMPARE(CustomCharacterMap::toDisplayString(text), shown);
        QCOMPARE(CustomCharacterMap::fromDisplayString(shown), text);
    }

    void groupSeparatorSymbolGivesCharacter28()
    {
        QCOMPARE(CustomCharacterMap::toReplacementChar(QChar(28)), QChar(0x241C));
        QCOMPARE(CustomCharacterMap::fromReplacementChar(QChar(0x241D)), QChar(28));
        QCOMPARE(CustomCharacterMap::fromReplacementChar(QChar(0x241C)), QChar(28));
        QCOMPARE(CustomCharacterMap::fromDisplayString(QString(QChar(0x241D))), QString(QChar(28)));
        const QString typed = CustomCharacterMap::fromDisplayString(QString(QChar(0x241D)));
        QCOMPARE(CustomCharacterMap::toDisplayString(typed), QString(QChar(0x241C)));
    }

    void charactersOutsideTheTablePass_data()
    {
        QTest::addColumn<int>("character");
        QTest::newRow("NUL") << 0;
        QTest::newRow("29") << 29;
        QTest::newRow("space") << 32;
        QTest::newRow("a") << int('a');
        QTest::newRow("U+2400") << 0x2400;
        QTest::newRow("U+2420") << 0x2420;
    }

    void charactersOutsideTheTablePass()
    {
        QFETCH(int, character);
        const QChar c(character);
        QCOMPARE(CustomCharacterMap::toReplacementChar(c), c);
        QCOMPARE(CustomCharacterMap::fromReplacementChar(c), c);
        const QString text = QStringLiteral("a") + c + QStringLiteral("b");
        QCOMPARE(CustomCharacterMap::toDisplayString(text), text);
        QCOMPARE(CustomCharacterMap::fromDisplayString(text), text);
    }

    void emptyTextStaysEmpty()
    {
        QVERIFY(CustomCharacterMap::toDisplayString(QString()).isEmpty());
        QVERIFY(CustomCharacterMap::fromDisplayString(QString()).isEmpty());
        QVERIFY(CustomCharacterMap::toDisplayString(QStringLiteral("")).isEmpty());
        QVERIFY(CustomCharacterMap::fromDisplayString(QStringLiteral("")).isEmpty());
    }

    void lineEndBecomesOneLine()
    {
        const QString shown = CustomCharacterMap::toDisplayString(QStringLiteral("a\r\n"));
        QCOMPARE(shown, QStringLiteral("a") + QChar(0x240D) + QChar(0x240A));
        QVERIFY(!shown.contains(QLatin1Char('\n')));
    }

    void wholeTextsAgreeWithTheTableRowByRow()
    {
        // The table applied row after row, as it reads, against the one pass over the text, on
        // 100,000 seeded random texts of characters, symbols and their neighbours.
        const QList<CustomCharacterMap::CharMapItem> rows = CustomCharacterMap::getMapping();
        auto rowByRow = [&rows](QString text, bool toSymbols) {
            for (const CustomCharacterMap::CharMapItem& row : rows) {
                const QChar from = (toSymbols ? row.character : row.replacement).toChar();
                const QChar to = (toSymbols ? row.replacement : row.character).toChar();
                text.replace(from, to);
            }
            return text;
        };
        QRandomGenerator random(20261125);
        for (int round = 0; round < 100000; ++round) {
            QString text(random.bounded(12), Qt::Uninitialized);
            for (QChar& c : text) {
                switch (random.bounded(4)) {
                case 0:
                    c = QChar(ushort(random.bounded(130)));
                    break;
                case 1:
                    c = QChar(ushort(0x23FE + random.bounded(0x28)));
                    break;
                case 2:
                    c = QChar(ushort(random.bounded(0x10000)));
                    break;
                default:
                    c = QLatin1Char('a');
                    break;
                }
            }
            QCOMPARE(CustomCharacterMap::toDisplayString(text), rowByRow(text, true));
            QCOMPARE(CustomCharacterMap::fromDisplayString(text), rowByRow(text, false));
        }
    }

    void everySymbolHasAGlyph()
    {
        // A symbol without a glyph in any installed font is drawn as an empty box; the set-up
        // installs a font that has the whole block, and the text engine must find it.
        const QFont font = QGuiApplication::font();
        for (const CustomCharacterMap::CharMapItem& row : CustomCharacterMap::getMapping()) {
            const QString symbol(row.replacement.toChar());
            QTextLayout layout(symbol, font);
            layout.beginLayout();
            layout.createLine();
            layout.endLayout();
            const QList<QGlyphRun> runs = layout.glyphRuns();
            QVERIFY(!runs.isEmpty());
            const QVector<quint32> glyphs = runs.first().glyphIndexes();
            QVERIFY2(glyphs.size() == 1 && glyphs.first() != 0,
                     qPrintable(row.name.toString() + QStringLiteral(" has no glyph")));
            QVERIFY2(runs.first().rawFont().supportsCharacter(symbol.at(0)),
                     qPrintable(row.name.toString()));
        }
    }

    void character29RoundTripsUnmarked()
    {
        const QString text = QStringLiteral("a") + QChar(29) + QStringLiteral("b");
        const QString shown = CustomCharacterMap::toDisplayString(text);
        QCOMPARE(shown, text);
        QCOMPARE(CustomCharacterMap::fromDisplayString(shown), text);
    }

    void nulAndSpaceUntouched()
    {
        const QString text = QStringLiteral("a") + QChar(0) + QStringLiteral(" b");
        QCOMPARE(text.size(), 4);
        QCOMPARE(CustomCharacterMap::toDisplayString(text), text);
        QCOMPARE(CustomCharacterMap::fromDisplayString(text), text);
    }

    void realSymbolComesBackAsCharacter()
    {
        // No escape scheme: a symbol that was in the text already is read as its character.
        const QString text = QStringLiteral("a") + QChar(0x240D);
        QCOMPARE(CustomCharacterMap::fromDisplayString(CustomCharacterMap::toDisplayString(text)),
                 QStringLiteral("a\r"));
    }

    void wholeStringConvertsEveryRow()
    {
        QString text;
        QString shown;
        for (const CustomCharacterMap::CharMapItem& item : CustomCharacterMap::getMapping()) {
            text += item.character.toChar();
            shown += CustomCharacterMap::toReplacementChar(item.character.toChar());
        }
        QCOMPARE(CustomCharacterMap::toDisplayString(text), shown);
        QCOMPARE(CustomCharacterMap::fromDisplayString(shown), text);
    }
};

QTEST_MAIN(TestCustomCharacterMap)
#include "tst_customcharactermap.moc"
