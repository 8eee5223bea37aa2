#ifndef LEDWIDGET_H
#define LEDWIDGET_H

#include <QWidget>

/// A round lamp of 16 by 16 pixels at the top left of the widget: green when lit, red when not.
class LedWidget : public QWidget
{
    Q_OBJECT

public:
    /// Makes a lamp under @p parent that is lit when @p state is true, for good.
    LedWidget(QWidget* parent, bool state);

protected:
    /// Draws the lamp.
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_bState;
};

#endif
