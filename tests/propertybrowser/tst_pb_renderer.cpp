#include "qtgrouppropertymanager.h"
#include "qttreepropertybrowser.h"
#include "showwidget.h"
#include "testsupport.h"
#include "tinymanager.h"

#include <QHeaderView>
#include <QItemDelegate>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <QTreeView>

namespace {

/// A renderer that works like the property tree's: it toggles a flag at every call and
/// "draws its button" only on a value-cell call that finds the flag false. It records where
/// it drew, and it can change the option the delegate then paints with.
class ToggleRenderer : public QObject, public QtPropertyAbstractCustomRenderer
{
public:
    explicit ToggleRenderer(QObject* parent)
        : QObject(parent)
    { }

    void drawCustom(QPainter*, QStyleOptionViewItem& option, const QModelIndex& index,
                    const QItemDelegate&, QtProperty* property) override
    {
        ++m_hCalls[{index.row(), index.column()}];
        m_hRects[{index.row(), index.column()}] = option.rect;
        if (index.column() == 1 && !m_bSkipButton) {
            m_lButtons.append(property->propertyName());
            // Like the button, which keeps the text off the space it takes.
            option.rect.setLeft(option.rect.left() + m_iShift);
        }
        m_bSkipButton = !m_bSkipButton;
        if (index.column() == 1 && m_oTextColor.isValid())
            option.palette.setColor(QPalette::Text, m_oTextColor);
    }

    bool m_bSkipButton = false;
    QStringList m_lButtons;
    QHash<QPair<int, int>, int> m_hCalls;
    QHash<QPair<int, int>, QRect> m_hRects;
    QColor m_oTextColor;
    int m_iShift = 0;
};

/// Whether @p colour is clearly red: text antialiasing blends it with the background.
bool isRedText(const QColor& colour)
{
    return colour.red() > 200 && colour.green() < 120 && colour.blue() < 120;
}

/// The leftmost column of @p rect in @p image whose pixels are not all the background colour.
int firstInkColumn(const QImage& image, const QRect& rect)
{
    const QColor background = image.pixelColor(rect.right() - 1, rect.top() + 1);
    for (int x = rect.left() + 1; x < rect.right(); ++x) {
        for (int y = rect.top() + 1; y < rect.bottom(); ++y) {
            if (image.pixelColor(x, y) != background)
                return x;
        }
    }
    return -1;
}

/// An icon that is red at 16 pixels and blue at 32: which colour is painted shows which pixmap
/// was taken, where a small one scaled up would be blurry.
QIcon twoSizeIcon()
{
    QPixmap small(16, 16);
    small.fill(Qt::red);
    QPixmap large(32, 32);
    large.fill(Qt::blue);
    QIcon icon;
    icon.addPixmap(small);
    icon.addPixmap(large);
    return icon;
}

/// @p widget painted on white at the pixel ratio @p ratio.
QImage renderedAt(QWidget* widget, qreal ratio)
{
    QImage image(widget->size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    widget->render(&image);
    return image;
}

} // namespace

class TestRenderer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void callPattern();
    void buttonOncePerRow_data();
    void buttonOncePerRow();
    void textColourTakesEffect();
    void shrunkRectMovesText();
    void iconsAreSharp_data();
    void iconsAreSharp();
    void nameTextStaysAboveTheStrip_data();
    void nameTextStaysAboveTheStrip();
    void propertyIconBeforeTheName_data();
    void propertyIconBeforeTheName();
    void destroyedRendererIsForgotten();
    void groupNameSpansRow();

private:
    /// The viewport painted anew, at ratio 1.
    QImage paintedViewport() const;
    /// The rectangle of the cell in @p row and @p column.
    QRect cellRect(int row, int column) const;

    QtTreePropertyBrowser* m_poBrowser = nullptr;
    TinyManager* m_poManager = nullptr;
    ToggleRenderer* m_poRenderer = nullptr;
    QTreeView* m_poView = nullptr;
};

void TestRenderer::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestRenderer::init()
{
    m_poBrowser = new QtTreePropertyBrowser;
    m_poBrowser->resize(400, 300);
    m_poBrowser->setAlternatingRowColors(false);
    m_poManager = new TinyManager;
    for (int row = 0; row < 5; ++row)
        m_poBrowser->addProperty(m_poManager->addProperty(QString("row%1").arg(row)));
    m_poRenderer = new ToggleRenderer(m_poBrowser);
    m_poBrowser->setCustomRenderer(m_poRenderer);
    m_poView = m_poBrowser->findChild<QTreeView*>();
    QVERIFY(showWidget(m_poBrowser));
    QTRY_VERIFY(cellRect(4, 1).isValid());
}

void TestRenderer::cleanup()
{
    delete m_poBrowser;
    delete m_poManager;
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

QImage TestRenderer::paintedViewport() const
{
    return m_poView->viewport()->grab().toImage();
}

QRect TestRenderer::cellRect(int row, int column) const
{
    return m_poView->visualRect(m_poView->model()->index(row, column));
}

void TestRenderer::callPattern()
{
    m_poRenderer->m_hCalls.clear();
    paintedViewport();
    for (int row = 0; row < 5; ++row) {
        QCOMPARE(m_poRenderer->m_hCalls.value({row, 0}), 1);
        QCOMPARE(m_poRenderer->m_hCalls.value({row, 1}), 2);
    }
}

void TestRenderer::buttonOncePerRow_data()
{
    QTest::addColumn<bool>("flagAtStart");
    QTest::addColumn<QString>("repaint");
    QTest::addColumn<QStringList>("expected");

    const QStringList all {"row0", "row1", "row2", "row3", "row4"};
    for (bool flag : {false, true}) {
        const QString suffix = flag ? " from a set flag" : " from a clear flag";
        QTest::newRow(qPrintable("everything" + suffix)) << flag << "all" << all;
        QTest::newRow(qPrintable("one row" + suffix)) << flag << "row" << QStringList {"row2"};
        QTest::newRow(qPrintable("one value cell" + suffix))
            << flag << "value" << QStringList {"row3"};
        // Only the name is painted: no value cell, no button, but the flag moves on.
        QTest::newRow(qPrintable("one name cell" + suffix)) << flag << "name" << QStringList {};
    }
}

void TestRenderer::buttonOncePerRow()
{
    QFETCH(bool, flagAtStart);
    QFETCH(QString, repaint);
    QFETCH(QStringList, expected);

    // Twice, so that the second round starts from whatever the first left.
    for (int round = 0; round < 2; ++round) {
        m_poRenderer->m_bSkipButton = round == 0 ? flagAtStart : m_poRenderer->m_bSkipButton;
        m_poRenderer->m_lButtons.clear();
        QWidget* viewport = m_poView->viewport();
        if (repaint == "all")
            viewport->repaint();
        else if (repaint == "row")
            viewport->repaint(cellRect(2, 0).united(cellRect(2, 1)));
        else if (repaint == "value")
            viewport->repaint(cellRect(3, 1).adjusted(4, 2, -4, -2));
        else
            viewport->repaint(cellRect(1, 0).adjusted(4, 2, -4, -2));
        QCOMPARE(m_poRenderer->m_lButtons, expected);
    }
}

void TestRenderer::textColourTakesEffect()
{
    m_poManager->setValue(m_poManager->properties().values().first(), 88888);
    const QRect plainCell = cellRect(0, 1);
    QImage image = paintedViewport();
    bool red = false;
    for (int x = plainCell.left(); x <= plainCell.right() && !red; ++x) {
        for (int y = plainCell.top(); y <= plainCell.bottom() && !red; ++y)
            red = isRedText(image.pixelColor(x, y));
    }
    QVERIFY(!red);

    m_poRenderer->m_oTextColor = Qt::red;
    image = paintedViewport();
    int redPixels = 0;
    for (int row = 0; row < 5; ++row) {
        const QRect cell = cellRect(row, 1);
        for (int x = cell.left(); x <= cell.right(); ++x) {
            for (int y = cell.top(); y <= cell.bottom(); ++y)
                redPixels += isRedText(image.pixelColor(x, y)) ? 1 : 0;
        }
    }
    QVERIFY2(redPixels > 20, qPrintable(QString::number(redPixels)));
    // The name column keeps its colour.
    const QRect nameCell = cellRect(0, 0);
    for (int x = nameCell.left(); x <= nameCell.right(); ++x) {
        for (int y = nameCell.top(); y <= nameCell.bottom(); ++y)
            QVERIFY(!isRedText(image.pixelColor(x, y)));
    }
}

void TestRenderer::shrunkRectMovesText()
{
    const QRect cell = cellRect(0, 1);
    const int before = firstInkColumn(paintedViewport(), cell);
    QVERIFY(before >= 0);
    m_poRenderer->m_iShift = 60;
    const int after = firstInkColumn(paintedViewport(), cell);
    QCOMPARE(after, before + 60);
}

void TestRenderer::iconsAreSharp_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("ratio 1 uses the small pixmap") << 1.0 << QColor(Qt::red);
    QTest::newRow("ratio 2 uses the large pixmap") << 2.0 << QColor(Qt::blue);
}

void TestRenderer::iconsAreSharp()
{
    QFETCH(qreal, ratio);
    QFETCH(QColor, expected);

    m_poManager->setValueIcon(twoSizeIcon());
    m_poBrowser->setIconSize(QSize(16, 16));
    m_poBrowser->setCustomRenderer(nullptr);
    QTRY_VERIFY(cellRect(0, 1).height() >= 16);

    const QImage image = renderedAt(m_poView->viewport(), ratio);
    const QRect cell = cellRect(0, 1);
    // The icon is at the left of the value cell, vertically centred.
    const QPoint iconCentre(cell.left() + 3 + 8, cell.center().y());
    QCOMPARE(image.pixelColor(iconCentre * ratio), expected);
}

void TestRenderer::nameTextStaysAboveTheStrip_data()
{
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("usual font") << 10 << 1.0;
    QTest::newRow("usual font, ratio 2") << 10 << 2.0;
    QTest::newRow("large font") << 16 << 1.0;
}

void TestRenderer::nameTextStaysAboveTheStrip()
{
    QFETCH(int, pointSize);
    QFETCH(qreal, ratio);
    QFont font = m_poBrowser->font();
    font.setPointSize(pointSize);
    m_poBrowser->setFont(font);
    // Names with letters that reach low, and an icon, which must keep clear too.
    QPixmap black(16, 16);
    black.fill(Qt::black);
    m_poManager->setPropertyIcon(QIcon(black));
    m_poBrowser->setIconSize(QSize(16, 16));
    for (QtProperty* property : m_poManager->properties()) {
        property->setPropertyName(QStringLiteral("gjpqy Qgj"));
        m_poManager->setValue(property, 9876);
    }
    const int strip = QtPropertyAbstractCustomRenderer::kNameStripHeight;
    QTRY_VERIFY(cellRect(0, 0).height() >= QFontMetrics(font).height() + strip);

    const QImage image = renderedAt(m_poView->viewport(), ratio);
    // The renderer here draws nothing under the names: any ink in the strip is text or icon.
    // The value keeps to the name's line.
    for (const QRect& cell : {cellRect(0, 0), cellRect(0, 1)}) {
        int inkAbove = 0;
        for (int y = cell.top() * ratio; y <= cell.bottom() * ratio; ++y) {
            for (int x = cell.left() * ratio; x < cell.right() * ratio; ++x) {
                if (qGray(image.pixel(x, y)) >= 160)
                    continue;
                QVERIFY2(y < (cell.bottom() + 1 - strip) * ratio,
                         qPrintable(QStringLiteral("ink at %1,%2").arg(x).arg(y)));
                ++inkAbove;
            }
        }
        QVERIFY(inkAbove > 50);
    }
}

void TestRenderer::propertyIconBeforeTheName_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("ratio 1") << 1.0;
    QTest::newRow("ratio 2") << 2.0;
}

void TestRenderer::propertyIconBeforeTheName()
{
    QFETCH(qreal, ratio);
    m_poManager->setPropertyIcon(twoSizeIcon());
    m_poBrowser->setIconSize(QSize(16, 16));
    m_poBrowser->setCustomRenderer(nullptr);
    QTRY_VERIFY(cellRect(0, 0).height() >= 16);

    QImage image = renderedAt(m_poView->viewport(), ratio);
    const QColor expected = ratio > 1 ? QColor(Qt::blue) : QColor(Qt::red);
    const QRect name = cellRect(0, 0);
    // The whole icon stands at the left of the name cell, vertically centred, and nowhere in
    // the value cell.
    const QRect iconInside(name.left() + 3 + 2, name.center().y() - 5, 12, 10);
    for (int y = iconInside.top(); y <= iconInside.bottom(); ++y) {
        for (int x = iconInside.left(); x <= iconInside.right(); ++x)
            QCOMPARE(image.pixelColor(QPoint(x, y) * ratio), expected);
    }
    const QRect value = cellRect(0, 1);
    for (int x = value.left(); x <= value.right(); ++x)
        QVERIFY(image.pixelColor(QPoint(x, value.center().y()) * ratio) != expected);

    // Without an icon the name starts where the icon stood.
    m_poManager->setPropertyIcon(QIcon());
    image = renderedAt(m_poView->viewport(), ratio);
    QVERIFY(image.pixelColor(QPoint(name.left() + 10, name.center().y()) * ratio) != expected);
}

void TestRenderer::destroyedRendererIsForgotten()
{
    m_poRenderer->m_hCalls.clear();
    QPointer<ToggleRenderer> renderer = m_poRenderer;
    delete m_poRenderer;
    m_poRenderer = nullptr;
    // Painting without the renderer works; a dangling one would crash here.
    const QImage image = paintedViewport();
    QVERIFY(!image.isNull());
    QVERIFY(renderer.isNull());
}

void TestRenderer::groupNameSpansRow()
{
    QtGroupPropertyManager groups;
    m_poBrowser->addProperty(groups.addProperty("G"));
    m_poBrowser->addProperty(groups.addProperty(
        "A group whose name is far too long for the name column alone to show it"));
    QTRY_VERIFY(cellRect(6, 0).isValid());
    const QHeaderView* header = m_poView->header();
    const int valueLeft = header->sectionViewportPosition(1);
    const int valueWidth = header->sectionSize(1);

    m_poRenderer->m_hCalls.clear();
    m_poRenderer->m_hRects.clear();
    const QImage image = paintedViewport();
    for (int row : {5, 6}) {
        // One call, for the name cell, which covers the value column too; none for a value.
        QCOMPARE(m_poRenderer->m_hCalls.value({row, 0}), 1);
        QCOMPARE(m_poRenderer->m_hCalls.value({row, 1}), 0);
        QCOMPARE(m_poRenderer->m_hRects.value({row, 0}).right(), valueLeft + valueWidth - 1);
    }
    QCOMPARE(m_poRenderer->m_hCalls.value({4, 1}), 2);

    // The long name is painted on into the value column; the short one leaves it blank.
    const auto valueArea = [&](int row) {
        const QRect name = cellRect(row, 0);
        return QRect(valueLeft + 2, name.top(), valueWidth - 4, name.height());
    };
    QCOMPARE(firstInkColumn(image, valueArea(5)), -1);
    QVERIFY(firstInkColumn(image, valueArea(6)) > valueLeft);
    m_poBrowser->clear();
}

QTEST_MAIN(TestRenderer)
#include "tst_pb_renderer.moc"
