#include "property_model/doublepropertymanager.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/widgetpropertycustomrenderer.h"
#include "qtbrowseritem.h"
#include "qttreepropertybrowser.h"
#include "sdk/ditem.h"

#include "showwidget.h"
#include "testsupport.h"

#include <QApplication>
#include <QItemDelegate>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyleOptionViewItem>
#include <QSvgRenderer>
#include <QTest>
#include <QTreeView>

#include <memory>
#include <vector>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WidgetPropertyCustomRenderer;
using PropertyBrowser::Managers::DoublePropertyManager;
using PropertyBrowser::Managers::IntPropertyManager;
using IoType = Script::DItem::IoType;

namespace {

/// What a numeric node of a row holds.
struct Numeric
{
    bool isNumeric = true;
    bool dynamic = true;
    IoType ioType = Script::DItem::IoInput;
    double minimum = 0.0;
    double maximum = 100.0;
    double value = 50.0;
};

bool isMarkerBlue(const QColor& colour)
{
    return colour.blue() > 90 && colour.red() < 60 && colour.green() < 60;
}

bool isNearWhite(const QColor& colour)
{
    return colour.red() > 235 && colour.green() > 235 && colour.blue() > 235;
}

} // namespace

Q_DECLARE_METATYPE(Qt::GlobalColor)

class TestWidgetPropertyCustomRenderer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void stripLiesAboveRowEdge_data();
    void stripLiesAboveRowEdge();
    void markerPosition_data();
    void markerPosition();
    void markerTipAtMaximumIsOnePixelBeyondRange();
    void filledStrip_data();
    void filledStrip();
    void rowWithoutBarHasNoStrip_data();
    void rowWithoutBarHasNoStrip();
    void rangeEndsShortOfColumnAtEveryDepth();
    void propertyLevelCountsParents();
    void fontFollowsGuiVisibility_data();
    void fontFollowsGuiVisibility();
    void buttonAtRightEndOfValueCell_data();
    void buttonAtRightEndOfValueCell();
    void buttonOncePerPairOfCalls();
    void buttonShowsTheBrowseIcon_data();
    void buttonShowsTheBrowseIcon();
    void selectedRowTextColour_data();
    void selectedRowTextColour();
    void highlightedTextNeedsActiveWindow();

private:
    /// Adds a top-level row of @p manager for a new node of @p type, shown in the browser.
    WidgetProperty* addRow(QtAbstractPropertyManager* manager, const QString& type,
                           const Numeric& numeric);
    /// Shows the browser and waits until the last row has its place.
    bool showBrowser();
    /// The rectangle of @p property's cell in @p column, in viewport coordinates.
    QRect cellRect(QtProperty* property, int column) const;
    QImage grabViewport() const;

    QtTreePropertyBrowser* m_poBrowser = nullptr;
    WidgetPropertyCustomRenderer* m_poRenderer = nullptr;
    std::unique_ptr<IntPropertyManager> m_poIntManager;
    std::unique_ptr<DoublePropertyManager> m_poDoubleManager;
    std::vector<std::unique_ptr<Script::DItem>> m_lNodes;
};

void TestWidgetPropertyCustomRenderer::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestWidgetPropertyCustomRenderer::init()
{
    m_poIntManager = std::make_unique<IntPropertyManager>();
    m_poDoubleManager = std::make_unique<DoublePropertyManager>();
    m_poBrowser = new QtTreePropertyBrowser;
    m_poBrowser->resize(400, 300);
    m_poBrowser->setAlternatingRowColors(false);
    // Tall rows keep the centred text well away from the strip at the lower edge.
    m_poBrowser->setItemMinimumHeight(30);
    m_poRenderer = new WidgetPropertyCustomRenderer(m_poBrowser);
    m_poBrowser->setCustomRenderer(m_poRenderer);
}

void TestWidgetPropertyCustomRenderer::cleanup()
{
    delete m_poBrowser;
    m_poBrowser = nullptr;
    m_poIntManager.reset();
    m_poDoubleManager.reset();
    m_lNodes.clear();
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

WidgetProperty* TestWidgetPropertyCustomRenderer::addRow(QtAbstractPropertyManager* manager,
                                                         const QString& type,
                                                         const Numeric& numeric)
{
    const QString name = QStringLiteral("N%1").arg(m_lNodes.size());
    m_lNodes.push_back(std::make_unique<Script::DItem>("Job.Tool." + name, type, numeric.ioType));
    Script::DItem* node = m_lNodes.back().get();
    node->setProperty("IData.IsGuiVisible", true);
    node->setProperty("IData.IsNumeric", numeric.isNumeric);
    node->setProperty("IData.NumericDynamic", numeric.dynamic);
    node->setProperty("IDataNumeric.DynamicMin", numeric.minimum);
    node->setProperty("IDataNumeric.DynamicMax", numeric.maximum);
    node->setProperty("IDataNumeric.DynamicValue", numeric.value);
    auto* property = dynamic_cast<WidgetProperty*>(manager->addProperty(name));
    property->setData(*node);
    m_poBrowser->addProperty(property);
    return property;
}

bool TestWidgetPropertyCustomRenderer::showBrowser()
{
    if (!showWidget(m_poBrowser))
        return false;
    QTreeView* view = m_poBrowser->findChild<QTreeView*>();
    const int rows = view->model()->rowCount();
    return rows > 0 && QTest::qWaitFor([view, rows] {
               return view->visualRect(view->model()->index(rows - 1, 1)).isValid();
           });
}

QRect TestWidgetPropertyCustomRenderer::cellRect(QtProperty* property, int column) const
{
    QTreeView* view = m_poBrowser->findChild<QTreeView*>();
    const QList<QtBrowserItem*> items = m_poBrowser->items(property);
    // Walk down from the top level: the view's model follows the browser's items.
    QList<int> rows;
    for (const QtBrowserItem* item = items.first(); item; item = item->parent()) {
        const QList<QtBrowserItem*> siblings
            = item->parent() ? item->parent()->children() : m_poBrowser->topLevelItems();
        rows.prepend(siblings.indexOf(const_cast<QtBrowserItem*>(item)));
    }
    QModelIndex index;
    for (int i = 0; i < rows.size(); ++i)
        index = view->model()->index(rows.at(i), i + 1 == rows.size() ? column : 0, index);
    return view->visualRect(index);
}

QImage TestWidgetPropertyCustomRenderer::grabViewport() const
{
    return m_poBrowser->findChild<QTreeView*>()->viewport()->grab().toImage();
}

void TestWidgetPropertyCustomRenderer::stripLiesAboveRowEdge_data()
{
    QTest::addColumn<bool>("isDouble");
    QTest::newRow("integer row") << false;
    QTest::newRow("double row") << true;
}

void TestWidgetPropertyCustomRenderer::stripLiesAboveRowEdge()
{
    QFETCH(bool, isDouble);
    Numeric numeric;
    numeric.value = 90.0;
    QtAbstractPropertyManager* manager = isDouble
        ? static_cast<QtAbstractPropertyManager*>(m_poDoubleManager.get())
        : m_poIntManager.get();
    WidgetProperty* row = addRow(manager, isDouble ? "IDataBasicDouble" : "IDataBasicInt", numeric);
    QVERIFY(showBrowser());
    const QRect r = cellRect(row, 0);
    const QImage image = grabViewport();
    const int rangeLeft = r.left() + 15;
    const int rangeRight = r.right() - 16;
    const QColor dark(Qt::darkGray);
    const QColor light(Qt::lightGray);
    for (int y = r.bottom() - 3; y <= r.bottom() - 1; ++y) {
        // The last pixel of the name cell carries the column line, so the strip is read up to
        // the one before it.
        QCOMPARE(image.pixelColor(r.left(), y), dark);
        QCOMPARE(image.pixelColor(rangeLeft - 1, y), dark);
        QCOMPARE(image.pixelColor(rangeLeft, y), light);
        QCOMPARE(image.pixelColor(rangeLeft + 20, y), light);
        QCOMPARE(image.pixelColor(rangeRight, y), light);
        QCOMPARE(image.pixelColor(rangeRight + 1, y), dark);
        QCOMPARE(image.pixelColor(r.right() - 1, y), dark);
    }
    for (int y : {r.bottom(), r.bottom() - 4}) {
        for (int x : {r.left(), rangeLeft + 20, r.right() - 1}) {
            QVERIFY(image.pixelColor(x, y) != dark);
            QVERIFY(image.pixelColor(x, y) != light);
        }
    }
}

void TestWidgetPropertyCustomRenderer::markerPosition_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("beyond");

    // position: fraction of the range's width from its left end; beyond: a fixed offset from
    // the left (negative) or the right end instead.
    QTest::newRow("below the minimum") << 0.0 << 100.0 << -20.0 << 0.0 << -7.5;
    QTest::newRow("at the minimum") << 0.0 << 100.0 << 0.0 << 0.0 << 0.0;
    QTest::newRow("inside") << 0.0 << 100.0 << 25.0 << 0.25 << 0.0;
    QTest::newRow("fractional limits") << -1.5 << 2.5 << 0.5 << 0.5 << 0.0;
    QTest::newRow("at the maximum") << 0.0 << 100.0 << 100.0 << 1.0 << 0.0;
    QTest::newRow("above the maximum") << 0.0 << 100.0 << 130.0 << 0.0 << 7.5;
}

void TestWidgetPropertyCustomRenderer::markerPosition()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(double, position);
    QFETCH(double, beyond);

    Numeric numeric;
    numeric.minimum = minimum;
    numeric.maximum = maximum;
    numeric.value = value;
    WidgetProperty* row = addRow(m_poDoubleManager.get(), "IDataBasicDouble", numeric);
    QVERIFY(showBrowser());
    const QRect r = cellRect(row, 0);
    const int rangeLeft = r.left() + 15;
    const int rangeRight = r.right() - 16;
    double expected = rangeLeft + position * (rangeRight - rangeLeft + 1);
    if (beyond < 0)
        expected = rangeLeft + beyond;
    else if (beyond > 0)
        expected = rangeRight + beyond;

    const QImage image = grabViewport();
    double sum = 0;
    int count = 0;
    int top = r.bottom();
    for (int y = r.top(); y <= r.bottom(); ++y) {
        for (int x = r.left(); x <= r.right(); ++x) {
            if (isMarkerBlue(image.pixelColor(x, y))) {
                sum += x;
                ++count;
                top = qMin(top, y);
            }
        }
    }
    QVERIFY(count > 5);
    // A triangle five pixels high whose point rests on the strip's lowest line.
    QVERIFY2(qAbs(top - (r.bottom() - 6)) <= 1, qPrintable(QString::number(top)));
    const double centre = sum / count + 0.5;
    QVERIFY2(qAbs(centre - expected) <= 1.0,
             qPrintable(QString("marker at %1, expected %2").arg(centre).arg(expected)));
}

void TestWidgetPropertyCustomRenderer::markerTipAtMaximumIsOnePixelBeyondRange()
{
    Numeric numeric;
    numeric.value = numeric.maximum;
    WidgetProperty* row = addRow(m_poDoubleManager.get(), "IDataBasicDouble", numeric);
    // Without a browser the row has no depth, so the range ends 16 pixels short of the cell.
    WidgetPropertyCustomRenderer renderer(nullptr);
    QImage target(300, 30, QImage::Format_ARGB32);
    target.fill(Qt::white);
    QPainter painter(&target);
    QStandardItemModel model(1, 2);
    QItemDelegate delegate;
    QStyleOptionViewItem option;
    option.rect = target.rect();
    renderer.drawCustom(&painter, option, model.index(0, 0), delegate, row);
    painter.end();

    const int rangeRight = option.rect.right() - 16;
    const int stripBottom = option.rect.bottom() - 1;
    // The marker's point rests on the strip's lowest line, in the first column past the range.
    QList<int> tip;
    for (int x = 0; x < target.width(); ++x) {
        QVERIFY(!isMarkerBlue(target.pixelColor(x, stripBottom + 1)));
        if (isMarkerBlue(target.pixelColor(x, stripBottom)))
            tip.append(x);
    }
    QCOMPARE(tip, QList<int>({rangeRight + 1}));
}

void TestWidgetPropertyCustomRenderer::filledStrip_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<bool>("errorState");
    QTest::addColumn<bool>("linkError");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<Qt::GlobalColor>("colour");

    QTest::newRow("no dynamic range")
        << 1 << false << false << false << 0.0 << 100.0 << 50.0 << Qt::lightGray;
    QTest::newRow("output in error inside the range")
        << 2 << true << true << false << 0.0 << 100.0 << 50.0 << Qt::darkRed;
    QTest::newRow("output in error above the range")
        << 2 << true << true << false << 0.0 << 100.0 << 500.0 << Qt::darkRed;
    QTest::newRow("output in error with equal limits and value")
        << 2 << true << true << false << 5.0 << 5.0 << 5.0 << Qt::darkRed;
    QTest::newRow("input with a link error")
        << 1 << true << false << true << 0.0 << 100.0 << 50.0 << Qt::darkRed;
    QTest::newRow("equal limits, value equal")
        << 1 << true << false << false << 5.0 << 5.0 << 5.0 << Qt::darkGreen;
    QTest::newRow("equal limits, output value equal")
        << 2 << true << false << false << -3.0 << -3.0 << -3.0 << Qt::darkGreen;
    QTest::newRow("equal limits, value below")
        << 1 << true << false << false << 5.0 << 5.0 << 4.0 << Qt::darkRed;
    QTest::newRow("equal limits, value above")
        << 2 << true << false << false << 5.0 << 5.0 << 6.0 << Qt::darkRed;
}

void TestWidgetPropertyCustomRenderer::filledStrip()
{
    QFETCH(int, ioType);
    QFETCH(bool, dynamic);
    QFETCH(bool, errorState);
    QFETCH(bool, linkError);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(Qt::GlobalColor, colour);

    Numeric numeric;
    numeric.ioType = IoType(ioType);
    numeric.dynamic = dynamic;
    numeric.minimum = minimum;
    numeric.maximum = maximum;
    numeric.value = value;
    WidgetProperty* row = addRow(m_poDoubleManager.get(), "IDataBasicDouble", numeric);
    m_lNodes.back()->setErrorState(errorState);
    m_lNodes.back()->setLinkError(linkError);
    QVERIFY(showBrowser());
    const QRect r = cellRect(row, 0);
    const QImage image = grabViewport();
    for (int y = r.bottom() - 3; y <= r.bottom() - 1; ++y) {
        for (int x = r.left(); x < r.right(); ++x)
            QCOMPARE(image.pixelColor(x, y), QColor(colour));
    }
    for (int x = r.left(); x < r.right(); ++x) {
        QVERIFY(image.pixelColor(x, r.bottom()) != QColor(colour));
        QVERIFY(image.pixelColor(x, r.bottom() - 4) != QColor(colour));
    }
    // A filled strip has no marker.
    for (int y = r.top(); y <= r.bottom(); ++y) {
        for (int x = r.left(); x <= r.right(); ++x)
            QVERIFY(!isMarkerBlue(image.pixelColor(x, y)));
    }
}

void TestWidgetPropertyCustomRenderer::rowWithoutBarHasNoStrip_data()
{
    QTest::addColumn<bool>("isNumeric");
    QTest::addColumn<int>("ioType");
    QTest::newRow("not numeric input") << false << 1;
    QTest::newRow("not numeric output") << false << 2;
    QTest::newRow("numeric setting") << true << 0;
}

void TestWidgetPropertyCustomRenderer::rowWithoutBarHasNoStrip()
{
    QFETCH(bool, isNumeric);
    QFETCH(int, ioType);
    Numeric numeric;
    numeric.isNumeric = isNumeric;
    numeric.ioType = IoType(ioType);
    numeric.minimum = 5.0;
    numeric.maximum = 5.0;
    numeric.value = 7.0;
    WidgetProperty* row = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    m_lNodes.back()->setProperty("IData.IsGuiVisible", false);
    QVERIFY(showBrowser());
    const QRect r = cellRect(row, 0);
    const QImage image = grabViewport();
    // Away from the text the cell is one colour down to the row's lower edge.
    const QColor background = image.pixelColor(r.right() - 2, r.top() + 2);
    for (int y = r.bottom() - 6; y < r.bottom(); ++y) {
        for (int x = r.left(); x < r.right(); ++x)
            QCOMPARE(image.pixelColor(x, y), background);
    }

    // Only the font changes for such a row.
    QImage target(r.size(), QImage::Format_ARGB32);
    QPainter painter(&target);
    QStandardItemModel model(1, 2);
    QItemDelegate delegate;
    QStyleOptionViewItem option;
    option.rect = QRect(QPoint(0, 0), r.size());
    target.fill(Qt::white);
    const QImage before = target;
    m_poRenderer->drawCustom(&painter, option, model.index(0, 0), delegate, row);
    QCOMPARE(option.font.style(), QFont::StyleItalic);
    QCOMPARE(target, before);
}

void TestWidgetPropertyCustomRenderer::rangeEndsShortOfColumnAtEveryDepth()
{
    Numeric numeric;
    numeric.value = 90.0;
    WidgetProperty* parent = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    WidgetProperty* child = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    m_poBrowser->removeProperty(child);
    parent->addSubProperty(child);
    m_poBrowser->setIndentation(25);
    QVERIFY(showBrowser());
    QVERIFY(QTest::qWaitFor([&] { return cellRect(child, 0).isValid(); }));
    const QImage image = grabViewport();
    QCOMPARE(cellRect(child, 0).left(), cellRect(parent, 0).left() + 25);
    for (QtProperty* property :
         {static_cast<QtProperty*>(parent), static_cast<QtProperty*>(child)}) {
        const QRect r = cellRect(property, 0);
        const int y = r.bottom() - 2;
        QCOMPARE(image.pixelColor(r.left() + 14, y), QColor(Qt::darkGray));
        QCOMPARE(image.pixelColor(r.left() + 15, y), QColor(Qt::lightGray));
        QCOMPARE(image.pixelColor(r.right() - 16, y), QColor(Qt::lightGray));
        QCOMPARE(image.pixelColor(r.right() - 15, y), QColor(Qt::darkGray));
    }
}

void TestWidgetPropertyCustomRenderer::propertyLevelCountsParents()
{
    Numeric numeric;
    WidgetProperty* parent = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    WidgetProperty* child = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    WidgetProperty* grandChild = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    WidgetProperty* hidden = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    m_poBrowser->removeProperty(child);
    m_poBrowser->removeProperty(grandChild);
    m_poBrowser->removeProperty(hidden);
    parent->addSubProperty(child);
    child->addSubProperty(grandChild);
    QCOMPARE(m_poRenderer->propertyLevel(parent), 1);
    QCOMPARE(m_poRenderer->propertyLevel(child), 2);
    QCOMPARE(m_poRenderer->propertyLevel(grandChild), 3);
    QCOMPARE(m_poRenderer->propertyLevel(hidden), 0);
    QCOMPARE(m_poRenderer->propertyLevel(nullptr), 0);

    // Without a browser as parent there is no item and no indentation.
    WidgetPropertyCustomRenderer orphan(nullptr);
    QCOMPARE(orphan.propertyLevel(parent), 0);
}

void TestWidgetPropertyCustomRenderer::fontFollowsGuiVisibility_data()
{
    QTest::addColumn<QVariant>("visible");
    QTest::addColumn<bool>("italicBefore");
    QTest::addColumn<QFont::Style>("expected");
    QTest::newRow("visible") << QVariant(true) << true << QFont::StyleNormal;
    QTest::newRow("not visible") << QVariant(false) << false << QFont::StyleItalic;
    QTest::newRow("key missing") << QVariant() << false << QFont::StyleItalic;
}

void TestWidgetPropertyCustomRenderer::fontFollowsGuiVisibility()
{
    QFETCH(QVariant, visible);
    QFETCH(bool, italicBefore);
    QFETCH(QFont::Style, expected);

    WidgetProperty* row = addRow(m_poIntManager.get(), "IDataBasicInt", Numeric());
    m_lNodes.back()->setProperty("IData.IsGuiVisible", visible);
    QImage target(200, 30, QImage::Format_ARGB32);
    QPainter painter(&target);
    QStandardItemModel model(1, 2);
    QItemDelegate delegate;
    for (int column : {0, 1}) {
        QStyleOptionViewItem option;
        option.rect = target.rect();
        option.font.setItalic(italicBefore);
        m_poRenderer->drawCustom(&painter, option, model.index(0, column), delegate, row);
        // Only the name cell takes the font.
        QCOMPARE(option.font.style(),
                 column == 0        ? expected
                     : italicBefore ? QFont::StyleItalic
                                    : QFont::StyleNormal);
    }
}

void TestWidgetPropertyCustomRenderer::buttonAtRightEndOfValueCell_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("isNumeric");
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<bool>("button");
    QTest::newRow("editable, no bar") << true << false << false << true;
    QTest::newRow("not editable, bar") << false << true << false << true;
    QTest::newRow("not editable, only a dynamic range") << false << false << true << true;
    QTest::newRow("neither") << false << false << false << false;
}

void TestWidgetPropertyCustomRenderer::buttonAtRightEndOfValueCell()
{
    QFETCH(bool, editable);
    QFETCH(bool, isNumeric);
    QFETCH(bool, dynamic);
    QFETCH(bool, button);

    Numeric numeric;
    numeric.isNumeric = isNumeric;
    numeric.dynamic = dynamic;
    WidgetProperty* row = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    m_lNodes.back()->setProperty("iIsEditable", editable);
    QVERIFY(showBrowser());
    const QRect cell = cellRect(row, 1);
    const QImage image = grabViewport();
    const QColor background = image.pixelColor(cell.right() - 40, cell.top() + 2);
    int ink = 0;
    for (int y = cell.top(); y < cell.bottom(); ++y) {
        for (int x = cell.right() - 29; x <= cell.right(); ++x)
            ink += image.pixelColor(x, y) != background ? 1 : 0;
    }
    QCOMPARE(ink > 100, button);
    // Nothing of the button lies left of its 30 pixels.
    for (int y = cell.top(); y < cell.bottom(); ++y)
        QCOMPARE(image.pixelColor(cell.right() - 30, y), background);
}

void TestWidgetPropertyCustomRenderer::buttonShowsTheBrowseIcon_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("1x") << qreal(1);
    QTest::newRow("2x") << qreal(2);
}

void TestWidgetPropertyCustomRenderer::buttonShowsTheBrowseIcon()
{
    QFETCH(qreal, ratio);
    WidgetProperty* row = addRow(m_poIntManager.get(), "IDataBasicInt", Numeric());
    m_lNodes.back()->setProperty("iIsEditable", true);
    // The renderer's button beside the same button without an icon: the icon is the difference.
    const auto paintButton = [&](bool byRenderer) {
        QImage target(QSize(200, 26) * ratio, QImage::Format_ARGB32);
        target.setDevicePixelRatio(ratio);
        target.fill(Qt::white);
        QPainter painter(&target);
        if (byRenderer) {
            QStandardItemModel model(1, 2);
            QItemDelegate delegate;
            QStyleOptionViewItem option;
            option.rect = QRect(0, 0, 200, 26);
            m_poRenderer->drawCustom(&painter, option, model.index(0, 1), delegate, row);
        } else {
            QStyleOptionButton button;
            button.rect = QRect(QPoint(170, 0), QPoint(199, 24));
            QApplication::style()->drawControl(QStyle::CE_PushButton, &button, &painter, nullptr);
        }
        return target;
    };
    const QImage plain = paintButton(false);
    const QImage drawn = paintButton(true);
    QRect changed;
    int differing = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            if (plain.pixel(x, y) != drawn.pixel(x, y)) {
                ++differing;
                changed |= QRect(x, y, 1, 1);
            }
        }
    }
    // The three dots, drawn at the device's own resolution inside the 16-pixel icon square
    // in the middle of the button.
    QVERIFY2(differing >= int(6 * ratio * ratio), qPrintable(QString::number(differing)));
    QVERIFY(changed.width() <= int(16 * ratio) && changed.height() <= int(16 * ratio));
    QVERIFY(QRect(QPoint(170, 0) * ratio, QSize(30, 25) * ratio).contains(changed));
}

void TestWidgetPropertyCustomRenderer::buttonOncePerPairOfCalls()
{
    Numeric numeric;
    WidgetProperty* row = addRow(m_poIntManager.get(), "IDataBasicInt", numeric);
    m_lNodes.back()->setProperty("iIsEditable", true);
    QImage target(200, 30, QImage::Format_ARGB32);
    QPainter painter(&target);
    QStandardItemModel model(1, 2);
    QItemDelegate delegate;
    // Name cell, value cell, value cell again: the delegate's pattern for two rows.
    for (int round = 0; round < 2; ++round) {
        QStyleOptionViewItem name;
        name.rect = target.rect();
        m_poRenderer->drawCustom(&painter, name, model.index(0, 0), delegate, row);
        QCOMPARE(name.rect, target.rect());

        target.fill(Qt::white);
        const QImage blank = target;
        QStyleOptionViewItem value;
        value.rect = QRect(0, 0, 200, 30);
        m_poRenderer->drawCustom(&painter, value, model.index(0, 1), delegate, row);
        m_poRenderer->drawCustom(&painter, value, model.index(0, 1), delegate, row);
        QCOMPARE(value.rect.right(), 199 - 30);
        QVERIFY(target != blank);
        QCOMPARE(target.copy(0, 0, 170, 30), blank.copy(0, 0, 170, 30));
    }
    // A null property still moves the pairing on and paints nothing.
    target.fill(Qt::white);
    const QImage blank = target;
    QStyleOptionViewItem value;
    value.rect = QRect(0, 0, 200, 30);
    m_poRenderer->drawCustom(&painter, value, model.index(0, 1), delegate, nullptr);
    m_poRenderer->drawCustom(&painter, value, model.index(0, 1), delegate, row);
    QCOMPARE(value.rect.right(), 199);
    QCOMPARE(target, blank);
}

void TestWidgetPropertyCustomRenderer::selectedRowTextColour_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("white");
    QTest::newRow("point, editable") << "IDataGeoPoint" << true << true;
    QTest::newRow("point, not editable") << "IDataGeoPoint" << false << true;
    QTest::newRow("integer, not editable") << "IDataBasicInt" << false << true;
    QTest::newRow("integer, editable") << "IDataBasicInt" << true << false;
}

void TestWidgetPropertyCustomRenderer::selectedRowTextColour()
{
    QFETCH(QString, type);
    QFETCH(bool, editable);
    QFETCH(bool, white);

    Numeric numeric;
    numeric.isNumeric = false;
    numeric.dynamic = false;
    numeric.value = 88888;
    WidgetProperty* row = addRow(m_poIntManager.get(), type, numeric);
    m_lNodes.back()->setEditable(editable);
    QVERIFY(showBrowser());
    QApplication::setActiveWindow(m_poBrowser);
    QVERIFY(QTest::qWaitForWindowActive(m_poBrowser));
    m_poBrowser->setCurrentItem(m_poBrowser->topLevelItems().first());
    QTreeView* view = m_poBrowser->findChild<QTreeView*>();
    view->selectionModel()->select(view->model()->index(0, 0),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const QRect cell = cellRect(row, 1);
    const QImage image = grabViewport();
    int whitePixels = 0;
    int darkPixels = 0;
    for (int y = cell.top(); y < cell.bottom(); ++y) {
        for (int x = cell.left(); x < cell.right(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            whitePixels += isNearWhite(colour) ? 1 : 0;
            darkPixels += colour.lightness() < 40 ? 1 : 0;
        }
    }
    QCOMPARE(whitePixels > 20, white);
    QCOMPARE(darkPixels > 20, !white);
}

void TestWidgetPropertyCustomRenderer::highlightedTextNeedsActiveWindow()
{
    WidgetProperty* row = addRow(m_poIntManager.get(), "IDataGeoPoint", Numeric());
    Script::DItem* node = m_lNodes.back().get();
    node->setIoType(Script::DItem::IoOutput);
    node->setErrorState(true);
    QImage target(200, 30, QImage::Format_ARGB32);
    QPainter painter(&target);
    QStandardItemModel model(1, 2);
    QItemDelegate delegate;
    for (bool active : {false, true}) {
        QStyleOptionViewItem option;
        option.rect = target.rect();
        option.state = QStyle::State_Enabled | QStyle::State_Selected;
        if (active)
            option.state |= QStyle::State_Active;
        m_poRenderer->drawCustom(&painter, option, model.index(0, 1), delegate, row);
        for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            // The output in error is red, and keeps red when highlighted in an inactive window.
            QCOMPARE(option.palette.color(group, QPalette::Text), QColor(Qt::red));
            QCOMPARE(option.palette.color(group, QPalette::HighlightedText),
                     active ? QColor(Qt::white) : QColor(Qt::red));
        }
    }
}

QTEST_MAIN(TestWidgetPropertyCustomRenderer)

#include "tst_widgetpropertycustomrenderer.moc"
