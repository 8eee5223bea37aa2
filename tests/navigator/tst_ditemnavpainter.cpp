#include "tabletranslator.h"

#include "navigator/ditemnavpainter.h"
#include "navigator/itemdelegateparentselected.h"
#include "sdk/ditem.h"

#include "testsupport.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QProxyStyle>
#include <QScopeGuard>
#include <QStandardItemModel>
#include <QStyleFactory>
#include <QTest>

namespace {

// The node states that the painter distinguishes, in one record so that each row of a table
// names only what differs from a plain setting.
struct NodeState
{
    int ioType = Script::DItem::IoNone;
    QString type = QStringLiteral("IDataBasicInt");
    bool error = false;
    bool initialized = false;
    bool linkable = false;
    bool linked = false;
    bool linkError = false;
    QString linkedPath;
    int outOfRange = 0;
};

} // namespace

Q_DECLARE_METATYPE(NodeState)

namespace {

NodeState output(bool error, bool initialized, int outOfRange = 0)
{
    NodeState state;
    state.ioType = Script::DItem::IoOutput;
    state.error = error;
    state.initialized = initialized;
    state.outOfRange = outOfRange;
    return state;
}

NodeState linkableNode(int ioType, const QString& type, bool linked, const QString& path = {},
                       bool linkError = false, int outOfRange = 0)
{
    NodeState state;
    state.ioType = ioType;
    state.type = type;
    state.linkable = true;
    state.linked = linked;
    state.linkedPath = path;
    state.linkError = linkError;
    state.outOfRange = outOfRange;
    return state;
}

NodeState unlinkable(int ioType, int outOfRange)
{
    NodeState state;
    state.ioType = ioType;
    state.outOfRange = outOfRange;
    return state;
}

void applyState(Script::DItem& node, const NodeState& state)
{
    node.setIoType(static_cast<Script::DItem::IoType>(state.ioType));
    node.setDataType(state.type);
    node.setErrorState(state.error);
    node.setInitialized(state.initialized);
    node.setLinkable(state.linkable);
    node.setLinked(state.linked);
    node.setLinkError(state.linkError);
    node.setLinkedPath(state.linkedPath);
    node.setOutOfRangeCounter(state.outOfRange);
}

// Paints one cell of @p index with @p delegate into a white image.
QImage paintCell(QStyledItemDelegate& delegate, const QModelIndex& index, bool selected)
{
    QImage image(200, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 200, 24);
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    if (selected)
        option.state |= QStyle::State_Selected;
    option.fontMetrics = QFontMetrics(QApplication::font());
    option.decorationSize = QSize(16, 16);
    QPainter painter(&image);
    delegate.paint(&painter, option, index);
    painter.end();
    return image;
}

int countPixels(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

// Records the rectangle of every focus frame drawn through it.
class FocusFrameRecorder : public QProxyStyle
{
public:
    FocusFrameRecorder()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion")))
    { }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element == PE_FrameFocusRect)
            m_lFrames.append(option->rect);
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable QList<QRect> m_lFrames;
};

QPixmap redIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return pixmap;
}

} // namespace

class TestDItemNavPainter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void valueText_data();
    void valueText();
    void textColor_data();
    void textColor();
    void errorOutputThatIsAlsoNotAvailableShowsErrorInRed();
    void linkedPathOfThreeSegmentsTranslatesTheLastOnly();
    void linkedNameWithoutUtf8FormIsLookedUpAsItsUtf8Reading();

    void selectedLeafPaintsLikeTheBaseClass();
    void unselectedParentPaintsLikeTheBaseClass();
    void selectedParentGetsAFrameAndNoFill_data();
    void selectedParentGetsAFrameAndNoFill();

private:
    QStandardItemModel m_oModel;
};

void TestDItemNavPainter::initTestCase()
{
    TestSupport::failOnWarnings();
    auto* parent = new QStandardItem(QStringLiteral("Module"));
    parent->appendRow(new QStandardItem(QStringLiteral("Child")));
    m_oModel.appendRow(parent);
    m_oModel.appendRow(new QStandardItem(QStringLiteral("Leaf")));
    auto* iconParent = new QStandardItem(QIcon(redIcon()), QStringLiteral("Icon module"));
    iconParent->appendRow(new QStandardItem(QStringLiteral("Child")));
    m_oModel.appendRow(iconParent);
}

void TestDItemNavPainter::cleanup()
{
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestDItemNavPainter::valueText_data()
{
    QTest::addColumn<NodeState>("state");
    QTest::addColumn<bool>("hasText");
    QTest::addColumn<QString>("text");

    const int in = Script::DItem::IoInput;
    const int none = Script::DItem::IoNone;
    const QString basic = QStringLiteral("IDataBasicInt");
    QTest::newRow("output in error") << output(true, false) << true << "Error";
    QTest::newRow("output in error and not available") << output(true, true) << true << "Error";
    QTest::newRow("output not available") << output(false, true) << true << "Not Available";
    QTest::newRow("output with a value") << output(false, false) << false << QString();
    QTest::newRow("output ignores its link") << [] {
        NodeState s = output(false, false);
        s.linkable = true;
        s.type = QStringLiteral("IDataImage");
        return s;
    }() << false << QString();
    QTest::newRow("input not linkable") << unlinkable(in, 0) << false << QString();
    QTest::newRow("setting not linkable") << unlinkable(none, 0) << false << QString();
    QTest::newRow("basic input not linked") << linkableNode(in, basic, false) << false << QString();
    QTest::newRow("enum input not linked counts as basic")
        << linkableNode(in, QStringLiteral("IDataBasicEnum"), false) << false << QString();
    QTest::newRow("image input not linked")
        << linkableNode(in, QStringLiteral("IDataImage"), false) << true << "Not Linked";
    QTest::newRow("lower-case basic is not basic")
        << linkableNode(in, QStringLiteral("idatabasicInt"), false) << true << "Not Linked";
    QTest::newRow("setting of another type not linked")
        << linkableNode(none, QStringLiteral("IDataGeoPoint"), false) << true << "Not Linked";
    QTest::newRow("linked input shows last segment")
        << linkableNode(in, basic, true, QStringLiteral("Job.Blob.Area")) << true << "Area";
    QTest::newRow("linked to a path of one segment")
        << linkableNode(none, basic, true, QStringLiteral("Area")) << true << "Area";
    QTest::newRow("linked with a trailing dot gives an empty name")
        << linkableNode(in, basic, true, QStringLiteral("Job.Blob.")) << true << "";
}

void TestDItemNavPainter::valueText()
{
    QFETCH(NodeState, state);
    QFETCH(bool, hasText);
    QFETCH(QString, text);

    Script::DItem node(QStringLiteral("Job.Module.Value"), state.type);
    applyState(node, state);
    const QSharedPointer<QString> result = DItemNavPainter(node).getValueText();
    QCOMPARE(!result.isNull(), hasText);
    if (hasText)
        QCOMPARE(*result, text);
}

void TestDItemNavPainter::textColor_data()
{
    QTest::addColumn<NodeState>("state");
    QTest::addColumn<QColor>("color");

    const int in = Script::DItem::IoInput;
    const int none = Script::DItem::IoNone;
    const QString basic = QStringLiteral("IDataBasicInt");
    const QColor red(Qt::red);
    const QColor black(Qt::black);
    QTest::newRow("1a output in error") << output(true, false) << red;
    QTest::newRow("1a output in error and not available") << output(true, true) << red;
    QTest::newRow("1b output not available") << output(false, true) << QColor(Qt::darkGray);
    QTest::newRow("1c output in range") << output(false, false) << black;
    QTest::newRow("1c output out of range") << output(false, false, 3) << red;
    QTest::newRow("1c output ignores a link error") << [] {
        NodeState s = output(false, false);
        s.linkable = true;
        s.linked = true;
        s.linkError = true;
        return s;
    }() << black;
    QTest::newRow("2a input not linkable in range") << unlinkable(in, 0) << black;
    QTest::newRow("2a input not linkable out of range") << unlinkable(in, 2) << red;
    QTest::newRow("2a setting not linkable out of range") << unlinkable(none, 1) << red;
    QTest::newRow("2b input not linked out of range")
        << linkableNode(in, basic, false, QString(), false, 5) << black;
    QTest::newRow("2c linked input with link error")
        << linkableNode(in, basic, true, QStringLiteral("A.B"), true) << red;
    QTest::newRow("2c linked input out of range stays black")
        << linkableNode(in, basic, true, QStringLiteral("A.B"), false, 4) << black;
    QTest::newRow("2c linked setting with link error")
        << linkableNode(none, basic, true, QStringLiteral("A.B"), true) << red;
}

void TestDItemNavPainter::textColor()
{
    QFETCH(NodeState, state);
    QFETCH(QColor, color);

    Script::DItem node(QStringLiteral("Job.Module.Value"), state.type);
    applyState(node, state);
    QCOMPARE(DItemNavPainter(node).getTextColor(), color);
}

void TestDItemNavPainter::errorOutputThatIsAlsoNotAvailableShowsErrorInRed()
{
    Script::DItem node(QStringLiteral("Job.Blob.Area"), QStringLiteral("IDataBasicDouble"),
                       Script::DItem::IoOutput);
    node.setErrorState(true);
    node.setInitialized(true);
    const DItemNavPainter painter(node);
    QVERIFY(painter.getValueText());
    QCOMPARE(*painter.getValueText(), QStringLiteral("Error"));
    QCOMPARE(painter.getTextColor(), QColor(Qt::red));
}

void TestDItemNavPainter::linkedPathOfThreeSegmentsTranslatesTheLastOnly()
{
    TableTranslator translator;
    translator.add(QStringLiteral("IData"), QStringLiteral("Area"), QStringLiteral("Fläche"));
    translator.add(QStringLiteral("IData"), QStringLiteral("Job.Blob.Area"),
                   QStringLiteral("whole path"));
    translator.add(QStringLiteral("IData"), QStringLiteral("Blob"), QStringLiteral("Klecks"));
    QVERIFY(QCoreApplication::installTranslator(&translator));

    Script::DItem node(QStringLiteral("Job.Calc.Input"), QStringLiteral("IDataBasicDouble"),
                       Script::DItem::IoInput);
    node.setLinkable(true);
    node.setLinked(true);
    node.setLinkedPath(QStringLiteral("Job.Blob.Area"));
    const QSharedPointer<QString> text = DItemNavPainter(node).getValueText();
    QCoreApplication::removeTranslator(&translator);
    QVERIFY(text);
    QCOMPARE(*text, QStringLiteral("Fläche"));
}

void TestDItemNavPainter::linkedNameWithoutUtf8FormIsLookedUpAsItsUtf8Reading()
{
    Script::DItem node(QStringLiteral("Job.Calc.Input"), QStringLiteral("IDataBasicInt"),
                       Script::DItem::IoInput);
    node.setLinkable(true);
    node.setLinked(true);
    // A lone surrogate has no UTF-8 form; Qt writes it as a question mark.
    node.setLinkedPath(QStringLiteral("Job.A") + QChar(0xD800));
    const QSharedPointer<QString> text = DItemNavPainter(node).getValueText();
    QVERIFY(text);
    QCOMPARE(*text, QStringLiteral("A?"));
}

void TestDItemNavPainter::selectedLeafPaintsLikeTheBaseClass()
{
    ItemDelegateParentSelected delegate(nullptr);
    QStyledItemDelegate base;
    const QModelIndex leaf = m_oModel.index(1, 0);
    const QImage painted = paintCell(delegate, leaf, true);
    QCOMPARE(painted, paintCell(base, leaf, true));
    // The base class fills a selected row, so the comparison is not between two blank images.
    QVERIFY(painted != paintCell(base, leaf, false));
}

void TestDItemNavPainter::unselectedParentPaintsLikeTheBaseClass()
{
    ItemDelegateParentSelected delegate(nullptr);
    QStyledItemDelegate base;
    const QModelIndex parent = m_oModel.index(0, 0);
    QCOMPARE(paintCell(delegate, parent, false), paintCell(base, parent, false));
}

void TestDItemNavPainter::selectedParentGetsAFrameAndNoFill_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("without icon") << 0;
    QTest::newRow("with icon") << 2;
}

void TestDItemNavPainter::selectedParentGetsAFrameAndNoFill()
{
    QFETCH(int, row);
    // The delegate draws its frame with the application's style.
    const QString styleBefore = QApplication::style()->objectName();
    auto* recorder = new FocusFrameRecorder;
    QApplication::setStyle(recorder);
    const auto restoreStyle = qScopeGuard([&styleBefore] { QApplication::setStyle(styleBefore); });
    ItemDelegateParentSelected delegate(nullptr);
    QStyledItemDelegate base;
    const QModelIndex parent = m_oModel.index(row, 0);
    const QImage painted = paintCell(delegate, parent, true);

    // One frame around the text, and the icon when there is one, over the row's full height.
    QCOMPARE(recorder->m_lFrames.size(), 1);
    const QRect textBounds
        = QFontMetrics(QApplication::font()).boundingRect(parent.data().toString());
    const int textSpan = textBounds.right() - textBounds.left();
    const int iconWidth = 16;
    const int right = row == 2 ? textSpan + 13 + iconWidth - 1 : textSpan + 6;
    QCOMPARE(recorder->m_lFrames.first(), QRect(QPoint(0, 0), QPoint(right, 23)));

    const QImage filled = paintCell(base, parent, true);
    QVERIFY(painted != filled);
    // The base class fills the selection with the highlight colour; this one draws none of it.
    const QColor highlight = QApplication::palette().color(QPalette::Active, QPalette::Highlight);
    QVERIFY(countPixels(filled, highlight) > 0);
    QCOMPARE(countPixels(painted, highlight), 0);
    // Something is drawn at the left: the frame, the text and, for that row, the icon.
    bool drawn = false;
    for (int x = 0; x < 60 && !drawn; ++x) {
        for (int y = 0; y < 24 && !drawn; ++y)
            drawn = painted.pixelColor(x, y) != QColor(Qt::white);
    }
    QVERIFY(drawn);
    if (row == 2)
        QCOMPARE(painted.pixelColor(3 + 8, 1 + 8), QColor(Qt::red));
}

QTEST_MAIN(TestDItemNavPainter)
#include "tst_ditemnavpainter.moc"
