#include "dialogs/highligter.h"

#include "dialogs/customcharactermap.h"

Highligter::Highligter(QTextDocument* parent)
    : QSyntaxHighlighter(parent)
{ }

void Highligter::highlightBlock(const QString& text)
{
    QTextCharFormat format;
    format.setForeground(Qt::white);
    format.setBackground(Qt::darkGreen);
    format.setFontPointSize(12);
    const QList<CustomCharacterMap::CharMapItem> mapping = CustomCharacterMap::getMapping();
    for (const CustomCharacterMap::CharMapItem& item : mapping) {
        const QChar symbol = item.replacement.toChar();
        for (int position = text.indexOf(symbol, 0, Qt::CaseSensitive); position >= 0;
             position = text.indexOf(symbol, position + 1, Qt::CaseSensitive)) {
            setFormat(position, 1, format);
        }
    }
}
