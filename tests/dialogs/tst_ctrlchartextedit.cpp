#include "dialogs/ctrlchartextedit.h"
#include "dialogs/customcharactermap.h"

#include "testsupport.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextDocumentLayout>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

namespace {

QString symbol(int code)
{
    return QString(QChar(code));
}

// The text as the document holds it, in symbols.
QString shownText(const CtrlCharTextEdit& edit)
{
    return edit.document()->toPlainText();
}

void sendKey(QWidget* widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
             bool autoRepeat)
{
    QKeyEvent event(type, key, modifiers, QString(), autoRepeat);
    QApplication::sendEvent(widget, &event);
}

} // namespace

class TestCtrlCharTextEdit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup()
    {
        QApplication::clipboard()->clear();
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void construction()
    {
        CtrlCharTextEdit edit;
        QVERIFY(edit.tabChangesFocus());
        QVERIFY(qobject_cast<QPlainTextDocumentLayout*>(edit.document()->documentLayout()));
        QCOMPARE(edit.document()->findChildren<QSyntaxHighlighter*>().size(), 1);
        QVERIFY(edit.toPlainText().isEmpty());
    }

    void ownLayoutFollowsTheText()
    {
        // The editor's own document layout must still drive the scroll bar while typing.
        QPlainTextEdit reference;
        CtrlCharTextEdit edit;
        for (QPlainTextEdit* editor : {&reference, static_cast<QPlainTextEdit*>(&edit)}) {
            editor->resize(120, 80);
            editor->show();
            QVERIFY(QTest::qWaitForWindowExposed(editor));
            editor->setPlainText(QStringLiteral("word ").repeated(60));
            QTest::keyClicks(editor, QStringLiteral("more ").repeated(40));
        }
        QVERIFY(reference.verticalScrollBar()->maximum() > 0);
        QTRY_COMPARE(edit.verticalScrollBar()->maximum(), reference.verticalScrollBar()->maximum());
        QCOMPARE(edit.verticalScrollBar()->value(), reference.verticalScrollBar()->value());
    }

    void roundTripOfEveryRow_data()
    {
        QTest::addColumn<int>("character");
        QTest::addColumn<int>("shown");
        const QList<CustomCharacterMap::CharMapItem> mapping = CustomCharacterMap::getMapping();
        for (const CustomCharacterMap::CharMapItem& item : mapping) {
            const int character = item.character.toChar().unicode();
            // The row "GS" repeats character 28, which always shows as the symbol of "FS".
            const int shown = character == 28 ? 0x241C : item.replacement.toChar().unicode();
            QTest::newRow(qPrintable(item.name.toString())) << character << shown;
        }
    }

    void roundTripOfEveryRow()
    {
        QFETCH(int, character);
        QFETCH(int, shown);
        const QString text = QStringLiteral("a") + QChar(character) + QStringLiteral("b");
        CtrlCharTextEdit edit;
        edit.setText(text);
        QCOMPARE(shownText(edit), QStringLiteral("a") + symbol(shown) + QStringLiteral("b"));
        QCOMPARE(edit.document()->blockCount(), 1);
        QCOMPARE(edit.toPlainText(), text);

        CtrlCharTextEdit plain;
        plain.setPlainText(text);
        QCOMPARE(shownText(plain), shownText(edit));
        QCOMPARE(plain.toPlainText(), text);

        CtrlCharTextEdit inserted;
        inserted.insertSymbol(QChar(character));
        QCOMPARE(shownText(inserted), symbol(shown));
        QCOMPARE(inserted.toPlainText(), QString(QChar(character)));
    }

    void setTextIsASlot()
    {
        CtrlCharTextEdit edit;
        QVERIFY(QMetaObject::invokeMethod(&edit, "setText", Q_ARG(QString, QStringLiteral("\t"))));
        QCOMPARE(shownText(edit), symbol(0x2409));
        QVERIFY(
            QMetaObject::invokeMethod(&edit, "setPlainText", Q_ARG(QString, QStringLiteral("\n"))));
        QCOMPARE(shownText(edit), symbol(0x240A));
    }

    void typedGroupSeparatorSymbolIsCharacter28()
    {
        CtrlCharTextEdit edit;
        edit.textCursor().insertText(symbol(0x241D));
        QCOMPARE(edit.toPlainText(), QString(QChar(28)));
        edit.setText(edit.toPlainText());
        QCOMPARE(shownText(edit), symbol(0x241C));
    }

    void character29AndUntouchedCharacters()
    {
        const QString text = QStringLiteral("a") + QChar(29) + QChar(0) + QStringLiteral(" b");
        CtrlCharTextEdit edit;
        edit.setText(text);
        QCOMPARE(edit.toPlainText(), text);
    }

    void emptyTextStaysEmpty()
    {
        CtrlCharTextEdit edit;
        edit.setText(QString());
        QVERIFY(edit.toPlainText().isEmpty());
        edit.setPlainText(QString());
        QVERIFY(edit.toPlainText().isEmpty());
    }

    void lineEndShowsOnOneLine()
    {
        CtrlCharTextEdit edit;
        edit.setText(QStringLiteral("a\r\n"));
        QCOMPARE(edit.document()->blockCount(), 1);
        QCOMPARE(shownText(edit), QStringLiteral("a") + symbol(0x240D) + symbol(0x240A));
        QCOMPARE(edit.toPlainText(), QStringLiteral("a\r\n"));
    }

    void enterTypesOneSymbol_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Return") << int(Qt::Key_Return) << int(Qt::NoModifier);
        QTest::newRow("Enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
        QTest::newRow("Shift+Return") << int(Qt::Key_Return) << int(Qt::ShiftModifier);
    }

    void enterTypesOneSymbol()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        CtrlCharTextEdit edit;
        edit.setText(QStringLiteral("ab"));
        edit.moveCursor(QTextCursor::NextCharacter);
        QTest::keyClick(&edit, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(edit.document()->blockCount(), 1);
        QCOMPARE(shownText(edit), QStringLiteral("a") + symbol(0x240D) + QStringLiteral("b"));
        QCOMPARE(edit.toPlainText(), QStringLiteral("a\rb"));
    }

    void heldEnterRepeats()
    {
        CtrlCharTextEdit edit;
        sendKey(&edit, QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, false);
        for (int i = 0; i < 3; ++i) {
            sendKey(&edit, QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, true);
            sendKey(&edit, QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, true);
        }
        sendKey(&edit, QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, false);
        QCOMPARE(edit.document()->blockCount(), 1);
        QCOMPARE(shownText(edit), symbol(0x240D).repeated(4));
        QCOMPARE(edit.toPlainText(), QStringLiteral("\r\r\r\r"));
    }

    void enterIsAccepted()
    {
        CtrlCharTextEdit edit;
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        event.ignore();
        QVERIFY(QApplication::sendEvent(&edit, &event));
        QVERIFY(event.isAccepted());
    }

    void otherKeysTypeAsUsual()
    {
        CtrlCharTextEdit edit;
        QTest::keyClicks(&edit, QStringLiteral("xy"));
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QCOMPARE(edit.toPlainText(), QStringLiteral("x"));
    }

    void tabMovesFocus()
    {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* edit = new CtrlCharTextEdit(&window);
        auto* next = new QLineEdit(&window);
        layout->addWidget(edit);
        layout->addWidget(next);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        QTest::keyClick(edit, Qt::Key_Tab);
        QTRY_VERIFY(next->hasFocus());
        QVERIFY(edit->toPlainText().isEmpty());
    }

    void pasteOfRichTextKeepsPlainTextOnly_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("html") << QStringLiteral("text/html");
        QTest::newRow("qrichtext") << QStringLiteral("application/x-qrichtext");
    }

    void pasteOfRichTextKeepsPlainTextOnly()
    {
        QFETCH(QString, format);
        auto* data = new QMimeData;
        data->setData(
            format,
            QByteArrayLiteral("<b>fett</b> <span style=\"color:#ff0000\">\xc3\xa4rger</span>"));
        // A plain text alternative must lose against the rich one.
        data->setText(QStringLiteral("plain"));
        QApplication::clipboard()->setMimeData(data);
        CtrlCharTextEdit edit;
        edit.paste();
        QCOMPARE(edit.toPlainText(), QStringLiteral("fett \u00e4rger"));
        const QTextBlock block = edit.document()->firstBlock();
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat charFormat = it.fragment().charFormat();
            QVERIFY(charFormat.fontWeight() != QFont::Bold);
            QVERIFY(!charFormat.hasProperty(QTextFormat::ForegroundBrush));
        }
    }

    void pasteOfControlCharacters()
    {
        auto* data = new QMimeData;
        data->setText(QStringLiteral("a\x01\t\x1b\x7f") + QChar(29) + QStringLiteral("b"));
        QApplication::clipboard()->setMimeData(data);
        CtrlCharTextEdit edit;
        edit.setText(QStringLiteral("[]"));
        edit.moveCursor(QTextCursor::NextCharacter);
        edit.paste();
        QCOMPARE(edit.document()->blockCount(), 1);
        QCOMPARE(shownText(edit),
                 QStringLiteral("[a") + symbol(0x2401) + symbol(0x2409) + symbol(0x241B)
                     + symbol(0x2421) + QChar(29) + QStringLiteral("b]"));
        QCOMPARE(edit.toPlainText(),
                 QStringLiteral("[a\x01\t\x1b\x7f") + QChar(29) + QStringLiteral("b]"));
    }

    void pasteOfSeveralLinesGivesOneLine()
    {
        auto* data = new QMimeData;
        data->setText(QStringLiteral("a\nb\r\nc\rd"));
        QApplication::clipboard()->setMimeData(data);
        CtrlCharTextEdit edit;
        edit.paste();
        QCOMPARE(edit.document()->blockCount(), 1);
        // The pasted text passes through a document fragment, where every line end is a break
        // between blocks, so each comes back as one line feed.
        QCOMPARE(edit.toPlainText(), QStringLiteral("a\nb\nc\nd"));
    }

    void pasteWithoutTextInsertsNothing()
    {
        auto* data = new QMimeData;
        data->setData(QStringLiteral("application/octet-stream"), QByteArrayLiteral("\x01\x02"));
        QApplication::clipboard()->setMimeData(data);
        CtrlCharTextEdit edit;
        edit.setText(QStringLiteral("keep"));
        edit.paste();
        QCOMPARE(edit.toPlainText(), QStringLiteral("keep"));
    }

    void pasteOfBrokenUtf8IsHarmless()
    {
        auto* data = new QMimeData;
        data->setData(QStringLiteral("application/x-qrichtext"), QByteArrayLiteral("x\xff\xfe<b"));
        QApplication::clipboard()->setMimeData(data);
        CtrlCharTextEdit edit;
        edit.paste();
        QVERIFY(edit.toPlainText().startsWith(QLatin1Char('x')));
        QCOMPARE(edit.document()->blockCount(), 1);
    }

    void symbolsAreHighlighted()
    {
        CtrlCharTextEdit edit;
        edit.setText(QStringLiteral("a\x01z\x01\r") + QChar(29));
        const QVector<QTextLayout::FormatRange> formats
            = edit.document()->firstBlock().layout()->formats();
        QList<int> positions;
        // Neighbouring symbols of the same format may come as one range.
        for (const QTextLayout::FormatRange& range : formats) {
            QCOMPARE(range.format.foreground().color(), QColor(Qt::white));
            QCOMPARE(range.format.background().color(), QColor(Qt::darkGreen));
            QCOMPARE(range.format.fontPointSize(), 12.0);
            for (int position = range.start; position < range.start + range.length; ++position)
                positions.append(position);
        }
        std::sort(positions.begin(), positions.end());
        QCOMPARE(positions, QList<int>({1, 3, 4}));
    }
};

QTEST_MAIN(TestCtrlCharTextEdit)
#include "tst_ctrlchartextedit.moc"
