#ifndef PROPERTYBROWSER_EDITORS_BOOLEDITOR_H
#define PROPERTYBROWSER_EDITORS_BOOLEDITOR_H

#include "editors/baseeditor.h"

#include <QString>

class QCheckBox;
class QHBoxLayout;
class QKeyEvent;

namespace PropertyBrowser {

class WidgetProperty;

namespace Managers {
class BoolPropertyManager;
}

namespace Editors {

/// Edits a truth value in its row with a check box and opens the value dialog, for the value or
/// the link, on the browse button.
class BoolEditor : public BaseEditor
{
    Q_OBJECT

public:
    /// Makes the editor of @p property, a row of the bool manager, in @p parent.
    BoolEditor(QWidget* parent, WidgetProperty* property);
    ~BoolEditor() override;

    /// Opens the value dialog with @p path preselected on its link page.
    void showLinkWidget(QString path) override;
    /// Pulls the node's value and reply text into the check box.
    void readData() override;
    /// Sends the value held for the commit.
    virtual void commitLocalData();

public slots:
    /// The value dialog: the local value, and for an input the link.
    void vButtonClicked();
    /// Takes the check box's state and sends it 10 ms later. Each call starts its own timer.
    void delayedCommit(bool checked);

protected:
    /// Space toggles the check box; every key then goes on to the property tree.
    void keyPressEvent(QKeyEvent* event) override;

private:
    Managers::BoolPropertyManager* manager() const;

    QHBoxLayout* m_rowLayout;
    QCheckBox* m_checkBox;
    bool m_value;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
