#ifndef CUSTOMCHARACTERMAP_H
#define CUSTOMCHARACTERMAP_H

#include <QList>
#include <QString>
#include <QVariant>

/// The one translation between ASCII control characters and the symbols of the Unicode block
/// of Control Pictures that stand for them wherever a node string is shown or edited.
class CustomCharacterMap
{
public:
    /// One row of the table: a name (QString), a character and its replacement (both QChar).
    struct CharMapItem
    {
        QVariant name;
        QVariant character;
        QVariant replacement;
    };

    CustomCharacterMap() = delete;

    /// Fills the table on the first call; later calls return at once.
    static void initialize();

    /// Gives the table, in its order, by value.
    static QList<CharMapItem> getMapping();

    /// Gives the symbol of the first row whose character is @p c, or @p c itself.
    static QChar toReplacementChar(QChar c);

    /// Gives the character of the first row whose symbol is @p c, or @p c itself.
    static QChar fromReplacementChar(QChar c);

    /// Replaces, row by row, every character of the table in @p text by its symbol.
    static QString toDisplayString(const QString& text);

    /// Replaces, row by row, every symbol of the table in @p text by its character.
    static QString fromDisplayString(const QString& text);

private:
    static QList<CharMapItem> iMapping;
    static bool isInitialized;
    static QString mapped(const QString& text, QChar (*map)(QChar));

    // The table as two look-ups: the symbol of each ASCII code, and the character of each
    // symbol from U+2400 on; 0 where the table has none.
    static constexpr ushort kAsciiCount = 128;
    static constexpr ushort kFirstSymbol = 0x2400;
    static constexpr int kSymbolCount = 0x22;
    static ushort iSymbolOf[kAsciiCount];
    static ushort iCharacterOf[kSymbolCount];
};

#endif
