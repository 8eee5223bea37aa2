#include "requestlog.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QImage>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Long values would make a row unreadable; the log is for following what happens.
const int kMaxTextLength = 120;

QString shortened(const QString& text)
{
    return text.size() <= kMaxTextLength ? text : text.left(kMaxTextLength - 1) + QChar(0x2026);
}

struct Named
{
    int number;
    const char* name;
};

// What each request asks of the host, so that the log reads without the request table.
const Named kRequestNames[] = {
    {9, QT_TRANSLATE_NOOP("RequestLog", "selection changed")},
    {34, QT_TRANSLATE_NOOP("RequestLog", "value edited")},
    {35, QT_TRANSLATE_NOOP("RequestLog", "may insert here?")},
    {36, QT_TRANSLATE_NOOP("RequestLog", "link clicked")},
    {39, QT_TRANSLATE_NOOP("RequestLog", "editing started")},
    {40, QT_TRANSLATE_NOOP("RequestLog", "editing ended")},
    {-1, QT_TRANSLATE_NOOP("RequestLog", "editing continues")},
    {43, QT_TRANSLATE_NOOP("RequestLog", "refresh node")},
    {45, QT_TRANSLATE_NOOP("RequestLog", "module inserted")},
    {47, QT_TRANSLATE_NOOP("RequestLog", "assistant visibility")},
    {50, QT_TRANSLATE_NOOP("RequestLog", "show tool box")},
    {51, QT_TRANSLATE_NOOP("RequestLog", "assistant tool tip")},
    {520, QT_TRANSLATE_NOOP("RequestLog", "insert module")},
    {521, QT_TRANSLATE_NOOP("RequestLog", "delete")},
    {522, QT_TRANSLATE_NOOP("RequestLog", "rename")},
    {528, QT_TRANSLATE_NOOP("RequestLog", "show or hide")},
    {531, QT_TRANSLATE_NOOP("RequestLog", "paste module")},
    {532, QT_TRANSLATE_NOOP("RequestLog", "move module")},
    {556, QT_TRANSLATE_NOOP("RequestLog", "colour marking")},
    {563, QT_TRANSLATE_NOOP("RequestLog", "save to file")},
    {564, QT_TRANSLATE_NOOP("RequestLog", "load from file")},
    {565, QT_TRANSLATE_NOOP("RequestLog", "unload file")},
};

// The meaning of each parameter key.
const Named kKeyNames[] = {
    {953, QT_TRANSLATE_NOOP("RequestLog", "value")},
    {956, QT_TRANSLATE_NOOP("RequestLog", "path")},
    {625, QT_TRANSLATE_NOOP("RequestLog", "source")},
    {626, QT_TRANSLATE_NOOP("RequestLog", "insertion path")},
    {627, QT_TRANSLATE_NOOP("RequestLog", "position")},
};

template<size_t N>
QString withName(const Named (&table)[N], int number)
{
    for (const Named& entry : table) {
        if (entry.number == number)
            return QStringLiteral("%1 %2").arg(number).arg(
                QCoreApplication::translate("RequestLog", entry.name));
    }
    return QString::number(number);
}

} // namespace

RequestLog::RequestLog(QWidget* parent)
    : QWidget(parent)
    , m_poList(new QTreeWidget(this))
    , m_poClearButton(new QPushButton(this))
{
    m_poList->setObjectName(QStringLiteral("requestList"));
    m_poList->setRootIsDecorated(false);
    m_poList->setUniformRowHeights(true);
    m_poList->setAlternatingRowColors(true);
    m_poList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_poList->header()->setStretchLastSection(true);

    m_poClearButton->setObjectName(QStringLiteral("clearButton"));
    connect(m_poClearButton, &QPushButton::clicked, this, &RequestLog::clear);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_poList);
    layout->addWidget(m_poClearButton, 0, Qt::AlignRight);
    vRetranslate();
}

void RequestLog::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        vRetranslate();
}

void RequestLog::vRetranslate()
{
    m_poList->setHeaderLabels(
        {tr("#"), tr("Category"), tr("Id"), tr("Parameters"), tr("Reply"), tr("Host")});
    m_poClearButton->setText(tr("Clear"));
}

void RequestLog::vAppend(const WRequest<QVariant>& request, const QVariant& reply,
                         const QString& outcome)
{
    QStringList parameters;
    for (const WParam<QVariant>& param : request)
        parameters << QStringLiteral("%1 = %2").arg(withName(kKeyNames, param.second),
                                                    sDescribe(param.first));
    auto* row = new QTreeWidgetItem(m_poList);
    row->setText(0, QString::number(m_poList->topLevelItemCount()));
    row->setText(1, QString::number(request.category));
    row->setText(2, withName(kRequestNames, request.id));
    row->setData(2, Qt::UserRole, request.id);
    row->setText(3, shortened(parameters.join(QStringLiteral("; "))));
    row->setToolTip(3, parameters.join('\n'));
    row->setText(4, sDescribe(reply));
    row->setText(5, outcome);
    m_poList->scrollToItem(row);
}

int RequestLog::count() const
{
    return m_poList->topLevelItemCount();
}

int RequestLog::requestId(int row) const
{
    const QTreeWidgetItem* item = m_poList->topLevelItem(row);
    return item ? item->data(2, Qt::UserRole).toInt() : 0;
}

QStringList RequestLog::rowTexts(int row) const
{
    QStringList texts;
    if (const QTreeWidgetItem* item = m_poList->topLevelItem(row)) {
        for (int column = 0; column < item->columnCount(); ++column)
            texts << item->text(column);
    }
    return texts;
}

QString RequestLog::sDescribe(const QVariant& value)
{
    if (!value.isValid())
        return tr("none");
    switch (value.userType()) {
    case QMetaType::QString:
        return '"' + shortened(value.toString()) + '"';
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        QStringList items;
        for (const QVariant& item : value.toList())
            items << sDescribe(item);
        return '[' + items.join(QStringLiteral(", ")) + ']';
    }
    case QMetaType::QVariantMap: {
        QStringList items;
        const QVariantMap map = value.toMap();
        for (auto it = map.constBegin(); it != map.constEnd(); ++it)
            items << it.key() + QStringLiteral(": ") + sDescribe(it.value());
        return '{' + items.join(QStringLiteral(", ")) + '}';
    }
    case QMetaType::QByteArray:
        return tr("%n byte(s)", nullptr, value.toByteArray().size());
    case QMetaType::QImage: {
        const QImage image = value.value<QImage>();
        return tr("image %1 x %2").arg(image.width()).arg(image.height());
    }
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    default:
        break;
    }
    if (value.canConvert<QString>())
        return value.toString();
    return QStringLiteral("(%1)").arg(QString::fromLatin1(value.typeName()));
}

void RequestLog::clear()
{
    m_poList->clear();
}
