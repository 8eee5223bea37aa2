#ifndef PROPERTYBROWSER_EDITORS_VALUEDIALOG_H
#define PROPERTYBROWSER_EDITORS_VALUEDIALOG_H

#include <QPointer>
#include <QString>

class QWidget;

namespace Script {
class DItem;
}

namespace PropertyBrowser {

class WidgetProperty;

namespace Editors {

class BaseEditor;
class WidgetSetDynamicGeneric;
class WidgetSetNode;

/// One run of the value dialog behind an editor's browse button: the dialog with the editor's
/// own page for a value and the link picker, run modally, and what the user chose in it.
///
/// The dialog's parent is the editor, so that it stays over the editor's window. The tree may
/// drop the editor, or the row, while the dialog runs; the dialog then goes with the editor, and
/// exec() says that nothing of the run is to be read or sent.
class ValueDialog
{
public:
    /// Makes the dialog of @p row under @p editor, with the link picker on its link page.
    ValueDialog(BaseEditor& editor, WidgetProperty& row);
    /// Deletes the dialog, unless it went with the editor.
    ~ValueDialog();
    ValueDialog(const ValueDialog&) = delete;
    ValueDialog& operator=(const ValueDialog&) = delete;

    /// The dialog, for wiring a page's verdict to it.
    WidgetSetNode& dialog();
    /// Puts @p page, which the dialog owns from then on, on the value page and opens the dialog
    /// there, with no choice of pages, titled with the row's name.
    void setLocalPage(QWidget* page);
    /// Offers the nodes that @p node may be linked to, and opens the dialog on its link page with
    /// the present link, or else @p fallbackPath, preselected.
    void offerLinks(const Script::DItem& node, const QString& fallbackPath);
    /// Runs the dialog. True when it was accepted and the editor, the row and the dialog are
    /// still there; only then may the choice and the pages be read.
    bool exec();

    /// The user accepted the value page.
    bool localChosen() const;
    /// The user accepted the link page.
    bool linkChosen() const;
    /// The path of the node selected on the link page, or an empty string, which drops the link.
    QString chosenLink() const;

private:
    QPointer<BaseEditor> m_editor;
    QPointer<WidgetProperty> m_row;
    QPointer<WidgetSetNode> m_dialog;
    WidgetSetDynamicGeneric* m_picker;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
