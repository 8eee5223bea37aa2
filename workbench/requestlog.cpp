#include "requestlog.h"

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
        parameters << QStringLiteral("%1 = %2").arg(param.second).arg(sDescribe(param.first));
    auto* row = new QTreeWidgetItem(m_poList);
    row->setText(0, QString::number(m_poList->topLevelItemCount()));
    row->setText(1, QString::number(request.category));
    row->setText(2, QString::number(request.id));
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
        return QStringLiteral("none");
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
