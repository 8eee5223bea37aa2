#include "dialogs/customcharactermap.h"

QList<CustomCharacterMap::CharMapItem> CustomCharacterMap::iMapping;
bool CustomCharacterMap::isInitialized = false;
ushort CustomCharacterMap::iSymbolOf[kAsciiCount] = {};
ushort CustomCharacterMap::iCharacterOf[kSymbolCount] = {};

void CustomCharacterMap::initialize()
{
    if (isInitialized)
        return;
    struct Row
    {
        const char* name;
        ushort character;
        ushort replacement;
    };
    // The rows "S0" and "S1" with digits, "GS" on character 28 and the missing 0, 29 and 32 are
    // what stored job texts were written with, so they stay as they are.
    static const Row rows[] = {
        {"SOH", 1, 0x2401},  {"STX", 2, 0x2402},  {"ETX", 3, 0x2403},  {"EOT", 4, 0x2404},
        {"ENQ", 5, 0x2405},  {"ACK", 6, 0x2406},  {"BEL", 7, 0x2407},  {"BS", 8, 0x2408},
        {"HT", 9, 0x2409},   {"LF", 10, 0x240A},  {"VT", 11, 0x240B},  {"FF", 12, 0x240C},
        {"CR", 13, 0x240D},  {"S0", 14, 0x240E},  {"S1", 15, 0x240F},  {"DLE", 16, 0x2410},
        {"DC1", 17, 0x2411}, {"DC2", 18, 0x2412}, {"DC3", 19, 0x2413}, {"DC4", 20, 0x2414},
        {"NAK", 21, 0x2415}, {"SYN", 22, 0x2416}, {"ETB", 23, 0x2417}, {"CAN", 24, 0x2418},
        {"EM", 25, 0x2419},  {"SUB", 26, 0x241A}, {"ESC", 27, 0x241B}, {"FS", 28, 0x241C},
        {"GS", 28, 0x241D},  {"RS", 30, 0x241E},  {"US", 31, 0x241F},  {"DEL", 127, 0x2421},
    };
    for (const Row& row : rows) {
        iMapping.append({QVariant(QString::fromLatin1(row.name)), QVariant(QChar(row.character)),
                         QVariant(QChar(row.replacement))});
        // The first row of a character or symbol is the one that counts.
        if (!iSymbolOf[row.character])
            iSymbolOf[row.character] = row.replacement;
        if (!iCharacterOf[row.replacement - kFirstSymbol])
            iCharacterOf[row.replacement - kFirstSymbol] = row.character;
    }
    isInitialized = true;
}

QList<CustomCharacterMap::CharMapItem> CustomCharacterMap::getMapping()
{
    initialize();
    return iMapping;
}

QChar CustomCharacterMap::toReplacementChar(QChar c)
{
    initialize();
    const ushort code = c.unicode();
    return code < kAsciiCount && iSymbolOf[code] ? QChar(iSymbolOf[code]) : c;
}

QChar CustomCharacterMap::fromReplacementChar(QChar c)
{
    initialize();
    const int index = c.unicode() - kFirstSymbol;
    return index >= 0 && index < kSymbolCount && iCharacterOf[index] ? QChar(iCharacterOf[index])
                                                                       : c;
}

QString CustomCharacterMap::toDisplayString(const QString& text)
{
    // One pass over the text: every character of the table lies below 128 and every symbol far
    // above, so a character's first row gives what the rows applied one after the other give.
    return mapped(text, toReplacementChar);
}

QString CustomCharacterMap::fromDisplayString(const QString& text)
{
    return mapped(text, fromReplacementChar);
}

QString CustomCharacterMap::mapped(const QString& text, QChar (*map)(QChar))
{
    QString result = text;
    // The text is copied only when a character changes.
    QChar* out = nullptr;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = map(text.at(i));
        if (c == text.at(i))
            continue;
        if (!out)
            out = result.data();
        out[i] = c;
    }
    return result;
}
