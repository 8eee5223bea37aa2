#ifndef PROPERTYBROWSER_EDITORS_ENUMEDITOR_H
#define PROPERTYBROWSER_EDITORS_ENUMEDITOR_H

#include "editors/baseeditor.h"

#include <QString>

class QComboBox;
class QHBoxLayout;
class QKeyEvent;

namespace PropertyBrowser {

class WidgetProperty;

namespace Managers {
class EnumPropertyManager;
}

namespace Editors {

/// Edits a choice in its row with a combo box and opens the value dialog, for the choice or the
/// link, on the browse button. Each entry shows the translated name and carries the untranslated
/// one, which is the node's value.
class EnumEditor : public BaseEditor
{
    Q_OBJECT

public:
    /// Makes the editor of @p property, a row of the enum manager, in @p parent.
    EnumEditor(QWidget* parent, WidgetProperty* property, EditorType type = TypeEnum);
    ~EnumEditor() override;

    /// Opens the value dialog with @p path preselected on its link page.
    void showLinkWidget(QString path) override;
    /// Gives the manager the node's choices and shows them with the current one.
    void readData() override;

public slots:
    /// Sends the choice of entry @p index, at once and whatever the former choice was.
    virtual void commitData(int index);
    /// The value dialog: the choice, and for an input the link. A subclass may replace it with
    /// a dialog of its own.
    virtual void vButtonClicked();

protected:
    /// Space opens the list; every key then goes on to the property tree.
    void keyPressEvent(QKeyEvent* event) override;
    /// The row's manager, or null when the row belongs to another.
    Managers::EnumPropertyManager* manager() const;
    /// Fills @p comboBox with the manager's choices: the translated name as text, the name
    /// itself as Qt::UserRole data.
    void fillChoices(QComboBox& comboBox) const;

    QHBoxLayout* m_rowLayout;
    QComboBox* m_comboBox;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
