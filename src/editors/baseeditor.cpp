#include "editors/baseeditor.h"

#include "navigator/ditemnavpainter.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"

#include <QColor>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPalette>
#include <QTimer>

namespace PropertyBrowser {
namespace Editors {

BaseEditor::BaseEditor(QWidget* parent, WidgetProperty* property, EditorType type)
    : QWidget(parent)
    , m_property(property)
    , m_editorType(type)
    , m_browseButton(this)
    , m_browseIcon(QStringLiteral(":/images/browse_settings.svg"))
    , m_linkLabel(this)
    , m_mode(ModeLocal)
{
    m_browseButton.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    m_browseButton.setFixedWidth(30);
    m_browseButton.setIcon(m_browseIcon);
    m_browseButton.setCursor(Qt::ArrowCursor);
    m_browseButton.setFocusPolicy(Qt::NoFocus);

    m_linkLabel.setTextFormat(Qt::RichText);
    m_linkLabel.setTextInteractionFlags(Qt::TextBrowserInteraction);
    connect(&m_linkLabel, &QLabel::linkActivated, this, &BaseEditor::vLinkClicked,
            Qt::UniqueConnection);

    // An editor that the browser drops at once (a click that passes through) is never reported.
    QTimer::singleShot(20, this, &BaseEditor::notifyCreation);
}

BaseEditor::~BaseEditor()
{
    WTreePropertyBrowser::notifyPropEditorDestroyed(this);
    m_property = nullptr;
    // QWidget takes the children down after the concrete editor is gone, and a focused input
    // ends its editing on the way: nothing of that may reach the editor's slots any more.
    for (QObject* child : children())
        disconnect(child, nullptr, this, nullptr);
}

BaseEditor::Mode BaseEditor::mode() const
{
    return m_mode;
}

void BaseEditor::setMode(Mode mode)
{
    m_mode = mode;
    if (mode != ModeLocal && mode != ModeLinked && mode != ModeState)
        return;
    // Only direct children are switched: a widget nested in an input keeps its own visibility.
    const QList<QWidget*> children = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const bool local = mode == ModeLocal;
    for (QWidget* child : children) {
        if (child != &m_linkLabel && child != &m_browseButton)
            child->setVisible(local);
    }
    m_linkLabel.setVisible(!local);
    if (!local) {
        const Script::DItem* node = m_property ? m_property->node : nullptr;
        const QColor color = node ? DItemNavPainter(*node).getTextColor() : QColor(Qt::black);
        changeLabelTextcolor(m_linkLabel, color);
        const QString value = m_property ? m_property->valueText() : QString();
        if (mode == ModeLinked) {
            m_linkLabel.setText(
                QStringLiteral("<a href=\"%1\" style=\"color: %2; text-decoration: none\">%3</a>")
                    .arg(node ? node->linkedPath() : QString(), color.name(), value));
        } else {
            m_linkLabel.setText(value);
        }
    }
    m_browseButton.setVisible(true);
}

void BaseEditor::refreshEditorData()
{
    readData();
    const Script::DItem* node = m_property ? m_property->node : nullptr;
    if (!node)
        return;
    switch (node->ioType()) {
    case Script::DItem::IoNone:
    case Script::DItem::IoInput:
        setMode(node->isLinked() ? ModeLinked : ModeLocal);
        break;
    case Script::DItem::IoOutput:
        setMode(node->hasErrorState() || node->isInitialized() ? ModeState : ModeLocal);
        break;
    }
}

bool BaseEditor::setupAndShowErrorLabel(QLabel& label, const Script::DItem& item)
{
    QString text;
    QString color;
    bool valueShown = true;
    const Script::DItem::IoType kind = item.ioType();
    if ((kind == Script::DItem::IoOutput && item.hasErrorState())
        || (kind == Script::DItem::IoInput && item.hasLinkError())) {
        text = App::getTranslatedName(QStringLiteral("Error"));
        color = QStringLiteral("red");
        valueShown = false;
    } else if (kind == Script::DItem::IoOutput && item.isInitialized()) {
        text = App::getTranslatedName(QStringLiteral("Not Available"));
        color = QStringLiteral("darkGray");
        valueShown = false;
    }
    // The label expects exactly this markup, bare colour word and second opening tag included.
    label.setText(QStringLiteral("<p style=\"%1\">%2<p>").arg(color, text));
    return valueShown;
}

void BaseEditor::changeLabelTextcolor(QLabel& label, const QColor& color)
{
    QPalette palette = label.palette();
    const QBrush brush(color, Qt::SolidPattern);
    palette.setBrush(QPalette::All, QPalette::Text, brush);
    palette.setBrush(QPalette::All, QPalette::HighlightedText, brush);
    palette.setBrush(QPalette::All, QPalette::Link, brush);
    palette.setBrush(QPalette::All, QPalette::LinkVisited, brush);
    label.setPalette(palette);
}

QString BaseEditor::commonStylesheet()
{
    static QString sheet;
    // An unreadable resource leaves the sheet empty, and the next call tries again.
    if (sheet.isEmpty()) {
        QFile file(QStringLiteral(":/resources/WStyleSheet.qss"));
        file.open(QIODevice::ReadOnly);
        const QByteArray bytes = file.readAll();
        sheet = QString::fromLatin1(bytes.constData());
        file.close();
    }
    return sheet;
}

void BaseEditor::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

QLocale BaseEditor::rowLocale(const WidgetProperty* row)
{
    // Built once, as the row builds its own: a locale made from a language allocates.
    static const QLocale treeLocale(QLocale::English, QLocale::UnitedStates);
    return row ? row->locale() : treeLocale;
}

void BaseEditor::layOutRow(QHBoxLayout& row, QWidget* values, int leftMargin)
{
    row.setContentsMargins(leftMargin, 0, 0, 0);
    row.setSpacing(0);
    row.addWidget(&m_linkLabel);
    row.addWidget(values);
    row.addWidget(&m_browseButton);
}

void BaseEditor::layOutRow(QHBoxLayout& row, QLayout* values)
{
    row.setContentsMargins(4, 0, 0, 0);
    row.setSpacing(0);
    row.addWidget(&m_linkLabel);
    row.addLayout(values);
    row.addWidget(&m_browseButton);
}

void BaseEditor::notifyCreation()
{
    WTreePropertyBrowser::notifyPropEditorCreated(this);
}

} // namespace Editors
} // namespace PropertyBrowser
