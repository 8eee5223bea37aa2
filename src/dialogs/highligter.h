#ifndef HIGHLIGTER_H
#define HIGHLIGTER_H

#include <QSyntaxHighlighter>

/// Marks every control-character symbol of a document, so that it stands out from the text.
class Highligter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// Highlights @p parent, which also owns the highlighter.
    explicit Highligter(QTextDocument* parent);

protected:
    /// Gives each symbol of the character map in @p text white on dark green at 12 points.
    void highlightBlock(const QString& text) override;
};

#endif
