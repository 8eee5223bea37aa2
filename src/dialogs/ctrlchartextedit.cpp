#include "dialogs/ctrlchartextedit.h"

#include "dialogs/customcharactermap.h"
#include "dialogs/highligter.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextDocumentLayout>
#include <QTextDocumentFragment>

CtrlCharTextEdit::CtrlCharTextEdit(QWidget* parent)
    : QPlainTextEdit(parent)
{
    new Highligter(document());
    document()->setDocumentLayout(new QPlainTextDocumentLayout(document()));
    // A tab is entered through the character table of the string panel instead.
    setTabChangesFocus(true);
}

QString CtrlCharTextEdit::toPlainText() const
{
    return CustomCharacterMap::fromDisplayString(QPlainTextEdit::toPlainText());
}

void CtrlCharTextEdit::insertSymbol(QChar c)
{
    textCursor().insertText(QString(CustomCharacterMap::toReplacementChar(c)));
}

void CtrlCharTextEdit::setText(const QString& text)
{
    QPlainTextEdit::setPlainText(CustomCharacterMap::toDisplayString(text));
}

void CtrlCharTextEdit::setPlainText(const QString& text)
{
    QPlainTextEdit::setPlainText(CustomCharacterMap::toDisplayString(text));
}

bool CtrlCharTextEdit::event(QEvent* e)
{
    if (e->type() == QEvent::KeyPress) {
        auto* keyEvent = static_cast<QKeyEvent*>(e);
        if (keyEvent->key() == Qt::Key_Return || keyEvent->key() == Qt::Key_Enter) {
            // A key the base class does not know is typed as its text, so the line never breaks.
            QKeyEvent symbolEvent(QEvent::KeyPress, Qt::Key_OpenUrl, keyEvent->modifiers(),
                                  QString(QChar(0x240D)), keyEvent->isAutoRepeat(), 1);
            const bool handled = QPlainTextEdit::event(&symbolEvent);
            e->setAccepted(symbolEvent.isAccepted());
            return handled;
        }
    }
    return QPlainTextEdit::event(e);
}

void CtrlCharTextEdit::insertFromMimeData(const QMimeData* source)
{
    static const QString richTextFormat = QStringLiteral("application/x-qrichtext");
    static const QString richTextHeader
        = QStringLiteral("<meta name=\"qrichtext\" content=\"1\" />");
    // No resource provider is given, so pasted markup cannot make the editor load anything.
    QTextDocumentFragment fragment;
    bool found = true;
    if (source == nullptr)
        found = false;
    else if (source->hasFormat(richTextFormat))
        fragment = QTextDocumentFragment::fromHtml(
            richTextHeader + QString::fromUtf8(source->data(richTextFormat)));
    else if (source->hasHtml())
        fragment = QTextDocumentFragment::fromHtml(richTextHeader + source->html());
    else if (!source->text().isNull())
        fragment = QTextDocumentFragment::fromPlainText(source->text());
    else
        found = false;
    if (found)
        textCursor().insertText(CustomCharacterMap::toDisplayString(fragment.toPlainText()));
    ensureCursorVisible();
}
