#ifndef PROPERTYBROWSER_EDITORS_BASEEDITOR_H
#define PROPERTYBROWSER_EDITORS_BASEEDITOR_H

#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QString>
#include <QWidget>

class QColor;
class QHBoxLayout;
class QLayout;
class QKeyEvent;

namespace Script {
class DItem;
}

namespace PropertyBrowser {

class WidgetProperty;

namespace Editors {

/// Base of every widget that stands in a value cell while a row is edited: it switches between
/// the type's input widgets and a label with the link or the state, owns the browse button, and
/// tells the property tree that an editor is open.
class BaseEditor : public QWidget
{
    Q_OBJECT

public:
    /// The kind of editor; stored for the host, nothing here reads it back.
    enum EditorType {
        TypeNone = 0,
        TypeBool = 1,
        TypeDouble = 2,
        TypeEnum = 3,
        TypeInt = 4,
        TypeImage = 5,
        TypeFilterTypeEnum = 7,
        TypeIData = 9,
        TypeString = 10,
        TypeOcrFilter = 11,
        TypeFile = 12
    };
    /// What the value area shows. The underlying type is fixed so that any int is a valid
    /// value: setMode() stores a value outside the enumeration as it is.
    enum Mode : int {
        /// The input widgets.
        ModeLocal = 0,
        /// The link as a clickable anchor.
        ModeLinked = 1,
        /// The value text, read only.
        ModeState = 2
    };

    /// Makes the editor of @p property in @p parent; it reports itself to the tree 20 ms later.
    BaseEditor(QWidget* parent, WidgetProperty* property, EditorType type);
    /// Reports the end of the editor to the tree at once.
    ~BaseEditor() override;

    /// Opens the editor's value dialog with @p path preselected on its link page.
    virtual void showLinkWidget(QString path) = 0;
    /// Pulls the node's current state into the input widgets.
    virtual void readData() = 0;

    /// The current display mode.
    Mode mode() const;
    /// Shows the input widgets or the label for @p mode; a mode outside the enumeration is only
    /// stored.
    void setMode(Mode mode);
    /// Reads the node again and derives the mode from it.
    void refreshEditorData();
    /// Writes the node's state into @p label of a value dialog; true when the value widgets are
    /// to show, false when the label is.
    bool setupAndShowErrorLabel(QLabel& label, const Script::DItem& item);

    /// Gives @p label's text and links the colour @p color.
    static void changeLabelTextcolor(QLabel& label, const QColor& color);
    /// The host's style sheet, read once it can be read.
    static QString commonStylesheet();

signals:
    /// The user clicked the link anchor; @p path is its target.
    void vLinkClicked(const QString& path);

protected:
    /// Leaves the key to the property tree.
    void keyPressEvent(QKeyEvent* event) override;
    /// The locale in which @p row reads and writes numbers; a row that is gone still formats as
    /// the tree does.
    static QLocale rowLocale(const WidgetProperty* row);
    /// Fills @p row, from left to right, with the link label, @p values and the browse button,
    /// with no spacing and only a left margin of @p leftMargin.
    void layOutRow(QHBoxLayout& row, QWidget* values, int leftMargin = 4);
    /// The same with the value widgets in the layout @p values.
    void layOutRow(QHBoxLayout& row, QLayout* values);

    WidgetProperty* m_property;
    EditorType m_editorType;
    QPushButton m_browseButton;
    QIcon m_browseIcon;
    QString m_linkPath;
    QLabel m_linkLabel;
    Mode m_mode;

private slots:
    void notifyCreation();
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
