#ifndef PROPERTYBROWSER_EDITORS_WIDGETSETNODE_H
#define PROPERTYBROWSER_EDITORS_WIDGETSETNODE_H

#include <QDialog>
#include <QString>

#include <memory>

class QShowEvent;
class QTreeWidget;
class Ui_WidgetSetNode;

namespace PropertyBrowser {
namespace Editors {

/// The modal dialog behind an in-row editor's browse button: a value typed here ("Manual
/// Value") or a link to another node ("Linked Value"), one page each. The editor that opens it
/// fills the pages with a value panel and the link picker, runs exec() and reads the widgets of
/// the form afterwards; the dialog itself holds no value.
class WidgetSetNode : public QDialog
{
    Q_OBJECT

public:
    /// Makes the dialog on its "Manual Value" page, with Reset and the warning hidden.
    explicit WidgetSetNode(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~WidgetSetNode() override;

    /// The form; its widgets are the dialog's interface to the editor that opens it.
    std::unique_ptr<Ui_WidgetSetNode> ui;

signals:
    /// Reset was clicked: the link is to be dropped. The dialog closes as accepted.
    void resetBtnClicked(bool checked);

public slots:
    /// Shows the page of the checked radio button and sets the buttons for it.
    void onRadioButtonChanged();
    /// Fits the height to the page shown, keeping the width.
    void makeFixedSize();
    /// Shows a panel's verdict: the warning with @p message when @p isValid is false, and the
    /// state of OK when @p changeOkButtonState is true.
    void onValidationResult(bool isValid, QString message, bool changeOkButtonState);
    /// Enables OK when the tree that sent the selection change has a leaf as current item.
    void okBtnState();
    /// Accepts the dialog when @p tree's current item is a leaf.
    void treeItemDoubleClicked(QTreeWidget* tree);
    /// Records whether a link target is at hand.
    void onNodeLinked(bool linked);

protected:
    /// Centres the page on the parent's window and fits the height once the layouts settle.
    void showEvent(QShowEvent* event) override;

private:
    void scheduleFixedSize();

    bool nodeLinked;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
