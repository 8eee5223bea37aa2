#ifndef CTRLCHARTEXTEDIT_H
#define CTRLCHARTEXTEDIT_H

#include <QPlainTextEdit>

/// A plain text editor that shows control characters as their symbols and gives out the real
/// characters: Enter types the symbol of a carriage return instead of breaking the line.
class CtrlCharTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Makes an empty editor under @p parent in which Tab moves the focus.
    explicit CtrlCharTextEdit(QWidget* parent = nullptr);

    /// Gives the text with every symbol turned back into its control character.
    /// It hides QPlainTextEdit::toPlainText(), which would give the symbols.
    QString toPlainText() const;

    /// Inserts the symbol of the control character @p c, or @p c itself, at the cursor.
    void insertSymbol(QChar c);

public slots:
    /// Shows @p text, which holds real control characters, in symbols.
    virtual void setText(const QString& text);

    /// Shows @p text, which holds real control characters, in symbols.
    virtual void setPlainText(const QString& text);

protected:
    /// Turns Return and Enter into the typing of the carriage return symbol.
    bool event(QEvent* e) override;

    /// Pastes or drops the plain text of @p source with its control characters as symbols.
    void insertFromMimeData(const QMimeData* source) override;
};

#endif
