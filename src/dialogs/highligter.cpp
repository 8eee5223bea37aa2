#include "dialogs/highligter.h"

#include "dialogs/customcharactermap.h"

#include <QSet>

namespace {

const QTextCharFormat& symbolFormat()
{
    static const QTextCharFormat format = [] {
        QTextCharFormat symbol;
        symbol.setForeground(Qt::white);
        symbol.setBackground(Qt::darkGreen);
        symbol.setFontPointSize(12);
        return symbol;
    }();
    return format;
}

// The map never changes once filled, so its symbols are gathered once.
const QSet<QChar>& symbols()
{
    static const QSet<QChar> set = [] {
        QSet<QChar> replacements;
        for (const CustomCharacterMap::CharMapItem& item : CustomCharacterMap::getMapping())
            replacements.insert(item.replacement.toChar());
        return replacements;
    }();
    return set;
}

} // namespace

Highligter::Highligter(QTextDocument* parent)
    : QSyntaxHighlighter(parent)
{ }

void Highligter::highlightBlock(const QString& text)
{
    for (int position = 0; position < text.size(); ++position) {
        if (symbols().contains(text.at(position)))
            setFormat(position, 1, symbolFormat());
    }
}
