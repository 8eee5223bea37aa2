#ifndef QTPROPERTYTREEVIEW_H
#define QTPROPERTYTREEVIEW_H

#include "qtframecache.h"

#include <QTreeView>

class QtTreePropertyBrowser;

/// The view inside a QtTreePropertyBrowser: paints row backgrounds and grid lines, opens
/// editors on a click in the value column and reports mouse events on rows to the browser.
class QtPropertyTreeView : public QTreeView
{
    Q_OBJECT
public:
    /// Creates the view of @p browser as its child.
    explicit QtPropertyTreeView(QtTreePropertyBrowser* browser);

    /// Opens the editor of @p index; false, without a warning, if there is none.
    bool openEditor(const QModelIndex& index);
    /// Lays the rows out again, after their height changed.
    void relayoutRows();

    /// The cell's rectangle; for a row without a value, both cells give the whole row's.
    QRect visualRect(const QModelIndex& index) const override;
    /// The cell at @p point; the name cell anywhere on a row without a value.
    QModelIndex indexAt(const QPoint& point) const override;

protected:
    /// Paints the view's own frame and scroll bar corner from kept pixels where it can.
    bool event(QEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Whether the row of @p index belongs to a property without a value (a group).
    bool isSpannedRow(const QModelIndex& index) const;
    /// Paints a row without a value as QTreeView paints a row whose first column spans the
    /// row: one name cell from the indentation to the last column's end. QTreeView's own
    /// spans are kept in a list searched for every row, quadratic with many groups.
    void drawSpannedRow(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const;
    /// Emits the browser's mouseEventSignal() if @p event is on a row.
    void reportMouseEvent(QMouseEvent* event);
    /// Paints what the scroll area paints itself: the corner between two shown scroll bars and
    /// the frame, which is put back from m_oFrameCache.
    void paintScrollArea();

    QtTreePropertyBrowser* m_poBrowser;
    QtFrameCache m_oFrameCache;
    // Set when an editor is asked for, so that a press whose signal already did so asks once.
    bool m_bEditorAsked = false;
};

#endif
