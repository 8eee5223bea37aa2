#include "qtbooledit.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QSignalBlocker>

QtBoolEdit::QtBoolEdit(QWidget* parent)
    : QWidget(parent)
    , m_poCheckBox(new QCheckBox(this))
{
    auto* layout = new QHBoxLayout(this);
    // Cells of a property row are small: the check box sits where the value text would.
    layout->setContentsMargins(4, 0, 0, 0);
    layout->addWidget(m_poCheckBox);
    setFocusProxy(m_poCheckBox);
    connect(m_poCheckBox, &QCheckBox::toggled, this, [this](bool checked) {
        updateText();
        emit toggled(checked);
    });
    updateText();
}

bool QtBoolEdit::isChecked() const
{
    return m_poCheckBox->isChecked();
}

void QtBoolEdit::setChecked(bool checked)
{
    {
        const QSignalBlocker blocker(m_poCheckBox);
        m_poCheckBox->setChecked(checked);
    }
    updateText();
}

bool QtBoolEdit::textVisible() const
{
    return m_bTextVisible;
}

void QtBoolEdit::setTextVisible(bool textVisible)
{
    if (m_bTextVisible == textVisible)
        return;
    m_bTextVisible = textVisible;
    updateText();
}

QCheckBox* QtBoolEdit::checkBox() const
{
    return m_poCheckBox;
}

void QtBoolEdit::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    m_poCheckBox->click();
    event->accept();
}

void QtBoolEdit::updateText()
{
    if (!m_bTextVisible) {
        m_poCheckBox->setText(QString());
        return;
    }
    m_poCheckBox->setText(m_poCheckBox->isChecked() ? tr("True") : tr("False"));
}
