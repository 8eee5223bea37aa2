#ifndef QTBOOLEDIT_H
#define QTBOOLEDIT_H

#include <QWidget>

class QCheckBox;

/// The editor of a bool property: a check box, with "True" or "False" beside it when the text
/// is visible. A click anywhere on the editor toggles it, as the row is what the user aims at.
class QtBoolEdit : public QWidget
{
    Q_OBJECT

public:
    /// Makes an unchecked editor that shows its text.
    explicit QtBoolEdit(QWidget* parent = nullptr);

    /// Whether the check box is ticked.
    bool isChecked() const;
    /// Ticks or clears the check box without emitting toggled().
    void setChecked(bool checked);
    /// Whether "True" or "False" is shown beside the check box.
    bool textVisible() const;
    /// Shows or hides the text beside the check box.
    void setTextVisible(bool textVisible);
    /// The check box the user clicks.
    QCheckBox* checkBox() const;

signals:
    /// The user ticked (@p checked true) or cleared the check box.
    void toggled(bool checked);

protected:
    /// Toggles the check box on a left click outside of it.
    void mousePressEvent(QMouseEvent* event) override;

private:
    /// Shows the text that matches the state, or none.
    void updateText();

    QCheckBox* m_poCheckBox;
    bool m_bTextVisible = true;
};

#endif
