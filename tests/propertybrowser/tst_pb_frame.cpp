#include "qttreepropertybrowser.h"
#include "showwidget.h"
#include "testsupport.h"
#include "tinymanager.h"

#include <QPainter>
#include <QProxyStyle>
#include <QStandardItemModel>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>
#include <QTreeView>

#include <cmath>
#include <functional>

namespace {

const QColor kUnpainted(255, 0, 255);

/// Fusion, with a frame that also shows the state, direction and palette it is drawn for, and
/// that counts how often it is drawn.
class FrameStyle : public QProxyStyle
{
public:
    FrameStyle()
        : QProxyStyle(QStyleFactory::create("fusion"))
    { }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (element != CE_ShapedFrame)
            return;
        ++m_iFrames;
        const QColor mark(option->state & State_HasFocus ? 255 : 0,
                          option->state & State_Enabled ? 255 : 0,
                          option->direction == Qt::RightToLeft ? 255 : 0);
        painter->fillRect(QRect(option->rect.topLeft(), QSize(8, 1)), mark);
        painter->fillRect(QRect(option->rect.topRight() - QPoint(7, 0), QSize(8, 1)),
                          option->palette.color(QPalette::Window));
        painter->fillRect(QRect(option->rect.bottomLeft(), QSize(8, 1)), m_oExtra);
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
            const QColor shape(int(frame->frameShape) * 16, frame->lineWidth * 16,
                               frame->midLineWidth * 16 + (frame->state & State_Sunken ? 8 : 0));
            painter->fillRect(QRect(option->rect.bottomRight() - QPoint(7, 0), QSize(8, 1)), shape);
        }
    }

    mutable int m_iFrames = 0;
    /// A colour the style draws that no widget state shows.
    QColor m_oExtra = Qt::black;
};

/// @p view, painted without its window's background into an image of @p ratio physical pixels
/// per pixel, on a colour no style uses.
QImage paintedView(QWidget* view, qreal ratio)
{
    QPixmap pixmap(view->size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(kUnpainted);
    view->render(&pixmap, QPoint(), QRegion(), QWidget::DrawChildren);
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

/// The part of @p view that only the scroll area paints: no child widget covers it. That is
/// the frame and the corner between two shown scroll bars.
QRegion scrollAreaOnly(const QAbstractScrollArea* view)
{
    QRegion region(view->rect());
    for (const QWidget* child :
         view->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible())
            region -= child->geometry();
    }
    return region;
}

/// A browser with enough rows to scroll, and a plain tree view that Qt paints alone, sized
/// and set up alike, to compare their frames pixel by pixel.
class FramePair
{
public:
    FramePair()
    {
        m_oPlain.setStyle(&m_oStyle);
        m_oBrowser.resize(300, 240);
        for (int row = 0; row < 40; ++row)
            m_oBrowser.addProperty(m_oManager.addProperty(QString("Row %1").arg(row)));
        m_poView = m_oBrowser.findChild<QTreeView*>();
        m_poView->setStyle(&m_oStyle);
        m_oModel.setRowCount(40);
        m_oModel.setColumnCount(2);
        m_oPlain.setModel(&m_oModel);
        setScrollBars(Qt::ScrollBarAlwaysOff);
    }

    /// Applies @p change to both top-level widgets.
    void apply(const std::function<void(QWidget*)>& change)
    {
        change(&m_oBrowser);
        change(&m_oPlain);
    }
    /// Applies @p change to both views.
    void applyToViews(const std::function<void(QFrame*)>& change)
    {
        change(m_poView);
        change(&m_oPlain);
    }
    void setScrollBars(Qt::ScrollBarPolicy horizontal)
    {
        for (QAbstractScrollArea* view : {static_cast<QAbstractScrollArea*>(m_poView),
                                          static_cast<QAbstractScrollArea*>(&m_oPlain)}) {
            view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            view->setHorizontalScrollBarPolicy(horizontal);
        }
    }
    /// Lays both out at the browser's size and shows them.
    bool show()
    {
        m_oBrowser.show();
        if (!QTest::qWaitForWindowExposed(&m_oBrowser))
            return false;
        m_oPlain.resize(m_poView->size());
        return showWidget(&m_oPlain);
    }

    FrameStyle m_oStyle;
    TinyManager m_oManager;
    QtTreePropertyBrowser m_oBrowser;
    QTreeView* m_poView = nullptr;
    QStandardItemModel m_oModel;
    QTreeView m_oPlain;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(FramePair&)>)

class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup()
    {
        qApp->setStyleSheet(QString());
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void paintsAsTheStyle_data();
    void paintsAsTheStyle();
    void followsChanges_data();
    void followsChanges();
    void followsFocus();
    void styleDrawsOnceForRepeatedPaints();

private:
    void compareFrames(FramePair& pair, qreal ratio);
    void compareFrames(FramePair& pair, qreal ratio, const QImage& browser, const QImage& plain);
};

void TestFrame::compareFrames(FramePair& pair, qreal ratio)
{
    compareFrames(pair, ratio, paintedView(pair.m_poView, ratio),
                  paintedView(&pair.m_oPlain, ratio));
}

void TestFrame::compareFrames(FramePair& pair, qreal ratio, const QImage& browser,
                              const QImage& plain)
{
    QCOMPARE(pair.m_oPlain.size(), pair.m_poView->size());
    const QRegion parts = scrollAreaOnly(pair.m_poView);
    QCOMPARE(parts, scrollAreaOnly(&pair.m_oPlain));
    int painted = 0;
    for (int y = 0; y < browser.height(); ++y) {
        for (int x = 0; x < browser.width(); ++x) {
            // The logical pixels this device pixel lies on, all of which must be the scroll
            // area's own: where a child covers a part of it, the child's content shows.
            const QPoint first(int(x / ratio), int(y / ratio));
            const QPoint last(int(std::nextafter((x + 1) / ratio, 0.0)),
                              int(std::nextafter((y + 1) / ratio, 0.0)));
            if (!(QRegion(QRect(first, last)) - parts).isEmpty())
                continue;
            if (browser.pixel(x, y) != plain.pixel(x, y))
                QFAIL(qPrintable(QString("pixel %1,%2 is %3, Qt paints %4")
                                     .arg(x)
                                     .arg(y)
                                     .arg(browser.pixelColor(x, y).name())
                                     .arg(plain.pixelColor(x, y).name())));
            painted += browser.pixelColor(x, y) != kUnpainted;
        }
    }
    // The comparison saw a frame, not two empty borders.
    QVERIFY(painted > 0);
}

void TestFrame::paintsAsTheStyle_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<bool>("bothScrollBars");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<qreal>("ratio");

    QTest::newRow("plain") << QString() << false << false << true << 1.0;
    QTest::newRow("both scroll bars") << QString() << true << false << true << 1.0;
    QTest::newRow("right to left") << QString() << true << true << true << 1.0;
    QTest::newRow("disabled") << QString() << false << false << false << 1.0;
    QTest::newRow("ratio 2") << QString() << true << false << true << 2.0;
    QTest::newRow("ratio 1.5") << QString() << true << true << true << 1.5;
    const QString border("QTreeView { border: 3px solid #c00000; border-left-width: 6px; }");
    QTest::newRow("style sheet border") << border << true << false << true << 1.0;
    QTest::newRow("style sheet border, ratio 2") << border << true << true << true << 2.0;
    QTest::newRow("style sheet background")
        << QString("QTreeView { background: #204080; border: 2px groove #808000; }") << true
        << false << true << 1.0;
    QTest::newRow("style sheet corner")
        << QString("QTreeView { border: 1px solid black; }"
                   "QAbstractScrollArea::corner { background: #00c000; }")
        << true << false << true << 1.0;
    QTest::newRow("style sheet disabled")
        << QString("QTreeView { border: 2px solid black; } QTreeView:disabled { border-color: "
                   "#909090; }")
        << false << false << false << 1.0;
}

void TestFrame::paintsAsTheStyle()
{
    QFETCH(QString, styleSheet);
    QFETCH(bool, bothScrollBars);
    QFETCH(bool, rightToLeft);
    QFETCH(bool, enabled);
    QFETCH(qreal, ratio);

    FramePair pair;
    pair.setScrollBars(bothScrollBars ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    pair.apply([&](QWidget* widget) {
        widget->setStyleSheet(styleSheet);
        widget->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        widget->setEnabled(enabled);
    });
    QVERIFY(pair.show());
    compareFrames(pair, ratio);
    if (QTest::currentTestFailed())
        return;
    // The second paint comes from what the first kept.
    compareFrames(pair, ratio);
}

void TestFrame::followsChanges_data()
{
    using Change = std::function<void(FramePair&)>;
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<Change>("change");

    QTest::newRow("palette") << QString() << Change([](FramePair& pair) {
        pair.apply([](QWidget* widget) {
            QPalette palette = widget->palette();
            palette.setColor(QPalette::Window, QColor(40, 90, 160));
            widget->setPalette(palette);
        });
    });
    QTest::newRow("size") << QString() << Change([](FramePair& pair) {
        pair.m_oBrowser.resize(420, 180);
        pair.m_oPlain.resize(pair.m_poView->size());
    });
    QTest::newRow("style sheet") << QString() << Change([](FramePair& pair) {
        pair.apply([](QWidget* widget) {
            widget->setStyleSheet("QTreeView { border: 4px solid #0000c0; }");
        });
    });
    QTest::newRow("style sheet rule")
        << QString("QTreeView { border: 4px solid #0000c0; }") << Change([](FramePair&) {
               // Only the rules change, not the border's width.
               qApp->setStyleSheet("QTreeView { border: 4px dashed #00c000; }");
           });
    QTest::newRow("style sheet of the view") << QString() << Change([](FramePair& pair) {
        // The view's own sheet, whose rules change but not the border's width.
        pair.applyToViews(
            [](QFrame* view) { view->setStyleSheet("QTreeView { border: 4px solid #0000c0; }"); });
        pair.m_poView->grab();
        pair.applyToViews(
            [](QFrame* view) { view->setStyleSheet("QTreeView { border: 4px dashed #00c000; }"); });
    });
    QTest::newRow("enabled") << QString() << Change([](FramePair& pair) {
        pair.apply([](QWidget* widget) { widget->setEnabled(false); });
    });
    QTest::newRow("style changed") << QString() << Change([](FramePair& pair) {
        // A style that changes its look tells the widgets so.
        pair.m_oStyle.m_oExtra = QColor(200, 0, 0);
        pair.applyToViews([](QFrame* view) {
            QEvent event(QEvent::StyleChange);
            QApplication::sendEvent(view, &event);
        });
    });
    QTest::newRow("frame style") << QString() << Change([](FramePair& pair) {
        pair.applyToViews([](QFrame* view) {
            view->setFrameStyle(QFrame::Box | QFrame::Raised);
            view->setLineWidth(3);
            view->setMidLineWidth(1);
        });
    });
    QTest::newRow("frame shadow") << QString() << Change([](FramePair& pair) {
        // Only the look changes, not the frame's width.
        pair.applyToViews(
            [](QFrame* view) { view->setFrameStyle(QFrame::Panel | QFrame::Sunken); });
        pair.m_poView->grab();
        pair.applyToViews([](QFrame* view) { view->setFrameShadow(QFrame::Raised); });
    });
    QTest::newRow("frame rectangle") << QString() << Change([](FramePair& pair) {
        pair.applyToViews(
            [](QFrame* view) { view->setFrameRect(view->rect().adjusted(0, 0, -1, 0)); });
    });
    QTest::newRow("line width") << QString() << Change([](FramePair& pair) {
        pair.applyToViews([](QFrame* view) { view->setLineWidth(3); });
    });
    QTest::newRow("middle line width") << QString() << Change([](FramePair& pair) {
        pair.applyToViews([](QFrame* view) { view->setMidLineWidth(2); });
    });
    QTest::newRow("direction") << QString() << Change([](FramePair& pair) {
        pair.setScrollBars(Qt::ScrollBarAlwaysOn);
        pair.apply([](QWidget* widget) { widget->setLayoutDirection(Qt::RightToLeft); });
    });
}

void TestFrame::followsChanges()
{
    QFETCH(QString, styleSheet);
    QFETCH(std::function<void(FramePair&)>, change);

    qApp->setStyleSheet(styleSheet);
    FramePair pair;
    QVERIFY(pair.show());
    compareFrames(pair, 1.0);
    if (QTest::currentTestFailed())
        return;
    change(pair);
    compareFrames(pair, 1.0);
}

void TestFrame::followsFocus()
{
    FramePair pair;
    QVERIFY(pair.show());
    // Each view painted while it has the focus, the browser's before and after it got it.
    const auto focused = [&](QWidget* window, QWidget* view) {
        window->activateWindow();
        view->setFocus();
        return QTest::qWaitForWindowActive(window)
            && QTest::qWaitFor([&] { return view->hasFocus(); });
    };
    const QImage before = paintedView(pair.m_poView, 1.0);
    QVERIFY(focused(&pair.m_oBrowser, pair.m_poView));
    const QImage browser = paintedView(pair.m_poView, 1.0);
    QVERIFY(browser != before);
    QVERIFY(focused(&pair.m_oPlain, &pair.m_oPlain));
    compareFrames(pair, 1.0, browser, paintedView(&pair.m_oPlain, 1.0));
}

void TestFrame::styleDrawsOnceForRepeatedPaints()
{
    FramePair pair;
    QVERIFY(pair.show());
    paintedView(pair.m_poView, 1.0);
    const int first = pair.m_oStyle.m_iFrames;
    paintedView(pair.m_poView, 1.0);
    pair.m_poView->grab();
    pair.m_poView->repaint();
    QCOMPARE(pair.m_oStyle.m_iFrames, first);
    // A paint for another pixel density draws anew.
    paintedView(pair.m_poView, 2.0);
    QCOMPARE(pair.m_oStyle.m_iFrames, first + 4);
}

QTEST_MAIN(TestFrame)
#include "tst_pb_frame.moc"
