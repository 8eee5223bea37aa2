#ifndef MODULETOOLBOX_H
#define MODULETOOLBOX_H

#include <QListWidget>

/// The host's tool box: the kinds of module a job can take. A kind is dragged into the job
/// tree, carrying its id and name in the format the job tree reads.
class ModuleToolBox : public QListWidget
{
    Q_OBJECT

public:
    /// Lists every kind of the module catalogue.
    explicit ModuleToolBox(QWidget* parent = nullptr);

    /// The format of a new module's drag.
    static const QString kAddFormat;

protected:
    /// Shows the kinds' names in the new language.
    void changeEvent(QEvent* event) override;
    /// Starts the drag of the current kind: "id@name" in the add format, with its image.
    void startDrag(Qt::DropActions supportedActions) override;

private:
    void vRetranslate();
};

#endif
