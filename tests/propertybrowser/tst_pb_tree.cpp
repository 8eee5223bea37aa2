#include "qttreepropertybrowser.h"
#include "showwidget.h"
#include "testsupport.h"
#include "tinyfactory.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

namespace {

/// A TinyManager whose properties have no value, like groups, yet a factory for them.
class ValuelessManager : public TinyManager
{
protected:
    bool hasValue(const QtProperty*) const override { return false; }
};

} // namespace

Q_DECLARE_METATYPE(QtBrowserItem*)
Q_DECLARE_METATYPE(QMouseEvent*)

class TestTree : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void expansionIsKeptPerItem();
    void visibilityIsKeptPerItem();
    void resizeModes_data();
    void resizeModes();
    void splitterPosition();
    void rowHeightFollowsMinimumAndIconSize();
    void publishedSettings();
    void backgroundColorIsInherited();
    void editItemCommitsThroughManager();
    void pressOnValueOpensEditor();
    void declinedEditorLeavesNoEditor();
    void pressEditedByTheSignalAsksOnce_data();
    void pressEditedByTheSignalAsksOnce();
    void editorGoesWithItsRow();
    void rowWithoutValueOpensNoEditor();
    void mouseEventsNameTheRow_data();
    void mouseEventsNameTheRow();

private:
    /// The centre of the cell of @p item in @p column, in viewport coordinates.
    QPoint cellCentre(QtBrowserItem* item, int column) const;

    QtTreePropertyBrowser* m_poBrowser = nullptr;
    TinyManager* m_poManager = nullptr;
    TinyFactory* m_poFactory = nullptr;
    QTreeView* m_poView = nullptr;
};

void TestTree::initTestCase()
{
    TestSupport::failOnWarnings();
    qRegisterMetaType<QtBrowserItem*>();
    qRegisterMetaType<QMouseEvent*>();
}

void TestTree::init()
{
    m_poBrowser = new QtTreePropertyBrowser;
    m_poBrowser->resize(400, 300);
    m_poManager = new TinyManager;
    m_poFactory = new TinyFactory;
    m_poBrowser->setFactoryForManager(m_poManager, m_poFactory);
    m_poView = m_poBrowser->findChild<QTreeView*>();
}

void TestTree::cleanup()
{
    delete m_poBrowser;
    delete m_poFactory;
    delete m_poManager;
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

QPoint TestTree::cellCentre(QtBrowserItem* item, int column) const
{
    // Rows are found by walking the model, the way the view knows them.
    QList<int> rows;
    for (QtBrowserItem* at = item; at; at = at->parent()) {
        const QList<QtBrowserItem*> siblings
            = at->parent() ? at->parent()->children() : m_poBrowser->topLevelItems();
        rows.prepend(siblings.indexOf(at));
    }
    QModelIndex index;
    for (int i = 0; i < rows.size(); ++i)
        index = m_poView->model()->index(rows.at(i), i + 1 == rows.size() ? column : 0, index);
    return m_poView->visualRect(index).center();
}

void TestTree::expansionIsKeptPerItem()
{
    QtProperty* group = m_poManager->addProperty("group");
    QtProperty* child = m_poManager->addProperty("child");
    group->addSubProperty(child);
    // The same group twice: collapsing one place leaves the other open.
    QtBrowserItem* first = m_poBrowser->addProperty(group);
    QtProperty* holder = m_poManager->addProperty("holder");
    holder->addSubProperty(group);
    QtBrowserItem* holderItem = m_poBrowser->addProperty(holder);
    QtBrowserItem* second = holderItem->children().first();
    QVERIFY(showWidget(m_poBrowser));
    QVERIFY(m_poBrowser->isExpanded(first));
    QVERIFY(m_poBrowser->isExpanded(second));

    QSignalSpy collapsedSpy(m_poBrowser, &QtTreePropertyBrowser::collapsed);
    QSignalSpy expandedSpy(m_poBrowser, &QtTreePropertyBrowser::expanded);
    m_poBrowser->setExpanded(first, false);
    QVERIFY(!m_poBrowser->isExpanded(first));
    QVERIFY(m_poBrowser->isExpanded(second));
    QCOMPARE(collapsedSpy.size(), 1);
    QCOMPARE(collapsedSpy.at(0).at(0).value<QtBrowserItem*>(), first);
    QVERIFY(!m_poView->isExpanded(m_poView->model()->index(0, 0)));

    // A collapsed item stays collapsed when it gets more children.
    group->addSubProperty(m_poManager->addProperty("late"));
    QVERIFY(!m_poBrowser->isExpanded(first));
    QVERIFY(!m_poView->isExpanded(m_poView->model()->index(0, 0)));

    m_poBrowser->setExpanded(first, true);
    QVERIFY(m_poBrowser->isExpanded(first));
    QCOMPARE(expandedSpy.size(), 1);
    QCOMPARE(expandedSpy.at(0).at(0).value<QtBrowserItem*>(), first);

    // Collapsing in the view is seen by the browser.
    m_poView->collapse(m_poView->model()->index(0, 0, m_poView->model()->index(1, 0)));
    QVERIFY(!m_poBrowser->isExpanded(second));
    QVERIFY(m_poBrowser->isExpanded(first));
}

void TestTree::visibilityIsKeptPerItem()
{
    QtProperty* shared = m_poManager->addProperty("shared");
    QtProperty* group = m_poManager->addProperty("group");
    group->addSubProperty(shared);
    QtBrowserItem* top = m_poBrowser->addProperty(shared);
    QtBrowserItem* below = m_poBrowser->addProperty(group)->children().first();
    QVERIFY(showWidget(m_poBrowser));
    QVERIFY(m_poBrowser->isItemVisible(top));

    m_poBrowser->setItemVisible(below, false);
    QVERIFY(!m_poBrowser->isItemVisible(below));
    QVERIFY(m_poBrowser->isItemVisible(top));
    QVERIFY(m_poView->isRowHidden(0, m_poView->model()->index(1, 0)));
    QVERIFY(!m_poView->isRowHidden(0, QModelIndex()));

    m_poBrowser->setItemVisible(below, true);
    QVERIFY(m_poBrowser->isItemVisible(below));
}

void TestTree::resizeModes_data()
{
    QTest::addColumn<QtTreePropertyBrowser::ResizeMode>("mode");
    QTest::addColumn<int>("value");
    QTest::addColumn<QHeaderView::ResizeMode>("headerMode");

    QTest::newRow("Interactive") << QtTreePropertyBrowser::Interactive << 0
                                 << QHeaderView::Interactive;
    QTest::newRow("Stretch") << QtTreePropertyBrowser::Stretch << 1 << QHeaderView::Stretch;
    QTest::newRow("Fixed") << QtTreePropertyBrowser::Fixed << 2 << QHeaderView::Fixed;
    QTest::newRow("ResizeToContents")
        << QtTreePropertyBrowser::ResizeToContents << 3 << QHeaderView::ResizeToContents;
}

void TestTree::resizeModes()
{
    QFETCH(QtTreePropertyBrowser::ResizeMode, mode);
    QFETCH(int, value);
    QFETCH(QHeaderView::ResizeMode, headerMode);

    QCOMPARE(static_cast<int>(mode), value);
    m_poBrowser->setResizeMode(mode);
    QCOMPARE(m_poBrowser->resizeMode(), mode);
    QCOMPARE(m_poView->header()->sectionResizeMode(0), headerMode);
}

void TestTree::splitterPosition()
{
    m_poBrowser->addProperty(m_poManager->addProperty("a"));
    QVERIFY(showWidget(m_poBrowser));
    m_poBrowser->setResizeMode(QtTreePropertyBrowser::Interactive);
    m_poBrowser->setSplitterPosition(123);
    QCOMPARE(m_poBrowser->splitterPosition(), 123);
    QCOMPARE(m_poView->columnWidth(0), 123);

    // Fitting the names: a long name makes the first column wider than a short one.
    m_poBrowser->setResizeMode(QtTreePropertyBrowser::ResizeToContents);
    QtProperty* shortName = m_poManager->addProperty("s");
    m_poBrowser->clear();
    m_poBrowser->addProperty(shortName);
    QTRY_VERIFY(m_poBrowser->splitterPosition() < 123);
    const int narrow = m_poBrowser->splitterPosition();
    m_poBrowser->addProperty(m_poManager->addProperty(QString(60, QLatin1Char('W'))));
    QTRY_VERIFY(m_poBrowser->splitterPosition() > narrow);
}

void TestTree::rowHeightFollowsMinimumAndIconSize()
{
    m_poBrowser->addProperty(m_poManager->addProperty("a"));
    m_poBrowser->addProperty(m_poManager->addProperty("b"));
    QVERIFY(showWidget(m_poBrowser));
    const QModelIndex second = m_poView->model()->index(1, 0);
    QTRY_VERIFY(m_poView->visualRect(second).height() > 0);
    QVERIFY(m_poView->visualRect(second).height() < 40);

    m_poBrowser->setItemMinimumHeight(40);
    QTRY_COMPARE(m_poView->visualRect(second).height(), 40);
    QCOMPARE(m_poView->visualRect(second).top(), 40);

    m_poBrowser->setItemMinimumHeight(0);
    QPixmap icon(64, 64);
    icon.fill(Qt::red);
    m_poManager->setValueIcon(QIcon(icon));
    m_poBrowser->setIconSize(QSize(50, 50));
    QCOMPARE(m_poView->iconSize(), QSize(50, 50));
    QTRY_VERIFY(m_poView->visualRect(second).height() >= 50);
}

void TestTree::publishedSettings()
{
    QVERIFY(m_poBrowser->rootIsDecorated());
    m_poBrowser->setRootIsDecorated(false);
    QVERIFY(!m_poBrowser->rootIsDecorated());
    QVERIFY(!m_poView->rootIsDecorated());

    m_poBrowser->setIndentation(12);
    QCOMPARE(m_poBrowser->indentation(), 12);
    QCOMPARE(m_poView->indentation(), 12);

    QVERIFY(m_poBrowser->alternatingRowColors());
    m_poBrowser->setAlternatingRowColors(false);
    QVERIFY(!m_poView->alternatingRowColors());

    QVERIFY(m_poBrowser->isHeaderVisible());
    m_poBrowser->setHeaderVisible(false);
    QVERIFY(!m_poBrowser->isHeaderVisible());
    QVERIFY(m_poView->isHeaderHidden());

    QVERIFY(!m_poBrowser->propertiesWithoutValueMarked());
    m_poBrowser->setPropertiesWithoutValueMarked(true);
    QVERIFY(m_poBrowser->propertiesWithoutValueMarked());
}

void TestTree::backgroundColorIsInherited()
{
    QtProperty* group = m_poManager->addProperty("group");
    QtProperty* child = m_poManager->addProperty("child");
    group->addSubProperty(child);
    QtBrowserItem* groupItem = m_poBrowser->addProperty(group);
    QtBrowserItem* childItem = groupItem->children().first();
    QVERIFY(!m_poBrowser->calculatedBackgroundColor(childItem).isValid());

    m_poBrowser->setBackgroundColor(groupItem, Qt::yellow);
    QCOMPARE(m_poBrowser->backgroundColor(groupItem), QColor(Qt::yellow));
    QVERIFY(!m_poBrowser->backgroundColor(childItem).isValid());
    QCOMPARE(m_poBrowser->calculatedBackgroundColor(childItem), QColor(Qt::yellow));
    m_poBrowser->setBackgroundColor(childItem, Qt::cyan);
    QCOMPARE(m_poBrowser->calculatedBackgroundColor(childItem), QColor(Qt::cyan));

    // The colour shows in the name cell of the group's row.
    m_poBrowser->setAlternatingRowColors(false);
    QVERIFY(showWidget(m_poBrowser));
    const QImage image = m_poView->viewport()->grab().toImage();
    const QRect nameCell = m_poView->visualRect(m_poView->model()->index(0, 0));
    QCOMPARE(image.pixelColor(nameCell.right() - 3, nameCell.top() + 2), QColor(Qt::yellow));
}

void TestTree::editItemCommitsThroughManager()
{
    QtProperty* property = m_poManager->addProperty("p");
    m_poManager->setValue(property, 5);
    QtBrowserItem* item = m_poBrowser->addProperty(property);
    QVERIFY(showWidget(m_poBrowser));

    m_poBrowser->editItem(item);
    auto* editor = m_poView->viewport()->findChild<QSpinBox*>();
    QVERIFY(editor);
    QCOMPARE(editor->value(), 5);
    QCOMPARE(m_poBrowser->currentItem(), item);
    // The editor covers the whole value cell, its icon too, so nothing shows twice beside it.
    QCOMPARE(editor->geometry(), m_poView->visualRect(m_poView->model()->index(0, 1)));
    m_poManager->setValueIcon(QIcon(QPixmap(16, 16)));
    m_poBrowser->editItem(item);
    QCOMPARE(editor->geometry(), m_poView->visualRect(m_poView->model()->index(0, 1)));

    editor->setValue(9);
    QCOMPARE(m_poManager->value(property), 9);
    QCOMPARE(m_poView->model()->index(0, 1).data().toString(), QString("9"));
}

void TestTree::pressOnValueOpensEditor()
{
    QtProperty* a = m_poManager->addProperty("a");
    QtProperty* b = m_poManager->addProperty("b");
    m_poBrowser->addProperty(a);
    QtBrowserItem* itemB = m_poBrowser->addProperty(b);
    QVERIFY(showWidget(m_poBrowser));
    QTRY_VERIFY(m_poView->visualRect(m_poView->model()->index(1, 1)).isValid());

    // A press on a name opens nothing.
    QTest::mouseClick(m_poView->viewport(), Qt::LeftButton, {}, cellCentre(itemB, 0));
    QVERIFY(!m_poView->viewport()->findChild<QSpinBox*>());
    QCOMPARE(m_poBrowser->currentItem(), itemB);

    QTest::mouseClick(m_poView->viewport(), Qt::LeftButton, {}, cellCentre(itemB, 1));
    auto* editor = m_poView->viewport()->findChild<QSpinBox*>();
    QVERIFY(editor);
    editor->setValue(-3);
    QCOMPARE(m_poManager->value(b), -3);
    QCOMPARE(m_poManager->value(a), 0);
}

void TestTree::declinedEditorLeavesNoEditor()
{
    QtBrowserItem* item = m_poBrowser->addProperty(m_poManager->addProperty("p"));
    QVERIFY(showWidget(m_poBrowser));
    m_poFactory->setDeclining(true);
    m_poBrowser->editItem(item);
    QVERIFY(!m_poView->viewport()->findChild<QSpinBox*>());

    // Without a factory for its manager a property has no editor either.
    m_poFactory->setDeclining(false);
    m_poBrowser->unsetFactoryForManager(m_poManager);
    m_poBrowser->editItem(item);
    QVERIFY(!m_poView->viewport()->findChild<QSpinBox*>());
}

void TestTree::pressEditedByTheSignalAsksOnce_data()
{
    QTest::addColumn<bool>("declining");
    QTest::addColumn<int>("column");
    QTest::newRow("editor, value") << false << 1;
    QTest::newRow("no editor, value") << true << 1;
    QTest::newRow("no editor, name") << true << 0;
}

void TestTree::pressEditedByTheSignalAsksOnce()
{
    QFETCH(bool, declining);
    QFETCH(int, column);
    QtBrowserItem* item = m_poBrowser->addProperty(m_poManager->addProperty("p"));
    m_poFactory->setDeclining(declining);
    // A user of the browser that opens the editor of any row pressed, on either column.
    connect(m_poBrowser, &QtTreePropertyBrowser::mouseEventSignal, this,
            [this](QMouseEvent* event, QtBrowserItem* pressed) {
                if (event->type() == QEvent::MouseButtonPress)
                    m_poBrowser->editItem(pressed);
            });
    QVERIFY(showWidget(m_poBrowser));
    QTRY_VERIFY(m_poView->visualRect(m_poView->model()->index(0, 1)).isValid());

    QTest::mousePress(m_poView->viewport(), Qt::LeftButton, {}, cellCentre(item, column));
    QCOMPARE(m_poFactory->m_iCreateCalls, 1);
    QCOMPARE(bool(m_poView->viewport()->findChild<QSpinBox*>()), !declining);
    QTest::mouseRelease(m_poView->viewport(), Qt::LeftButton, {}, cellCentre(item, column));
}

void TestTree::editorGoesWithItsRow()
{
    QtProperty* property = m_poManager->addProperty("p");
    m_poBrowser->addProperty(m_poManager->addProperty("stays"));
    QtBrowserItem* item = m_poBrowser->addProperty(property);
    QVERIFY(showWidget(m_poBrowser));
    m_poBrowser->editItem(item);
    QPointer<QSpinBox> editor = m_poView->viewport()->findChild<QSpinBox*>();
    QVERIFY(editor);
    m_poBrowser->removeProperty(property);
    QTRY_VERIFY(editor.isNull());
}

void TestTree::rowWithoutValueOpensNoEditor()
{
    ValuelessManager valueless;
    TinyFactory factory;
    m_poBrowser->setFactoryForManager(static_cast<TinyManager*>(&valueless), &factory);
    QtBrowserItem* group = m_poBrowser->addProperty(valueless.addProperty("group"));
    QtBrowserItem* valued = m_poBrowser->addProperty(m_poManager->addProperty("valued"));
    QVERIFY(showWidget(m_poBrowser));
    const QModelIndex groupValue = m_poView->model()->index(0, 1);
    QTRY_VERIFY(m_poView->visualRect(m_poView->model()->index(1, 1)).isValid());

    // The name cell covers the row: a point over the value column finds the name cell.
    const QRect row = m_poView->visualRect(groupValue);
    QCOMPARE(row, m_poView->visualRect(m_poView->model()->index(0, 0)));
    const int valueLeft = m_poView->header()->sectionViewportPosition(1);
    QVERIFY(row.left() < valueLeft && row.right() > valueLeft);
    const QPoint overValue(valueLeft + 10, row.center().y());
    QCOMPARE(m_poView->indexAt(overValue), m_poView->model()->index(0, 0));

    QTest::mouseClick(m_poView->viewport(), Qt::LeftButton, {}, overValue);
    QCOMPARE(m_poBrowser->currentItem(), group);
    QVERIFY(!m_poView->viewport()->findChild<QSpinBox*>());
    m_poBrowser->editItem(group);
    QVERIFY(!m_poView->viewport()->findChild<QSpinBox*>());

    // The same click on a row with a value does open its editor.
    QTest::mouseClick(m_poView->viewport(), Qt::LeftButton, {}, cellCentre(valued, 1));
    QVERIFY(m_poView->viewport()->findChild<QSpinBox*>());
    // The local manager and factory go before the browser.
    m_poBrowser->clear();
    m_poBrowser->unsetFactoryForManager(&valueless);
}

void TestTree::mouseEventsNameTheRow_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("name") << 0;
    QTest::newRow("value") << 1;
}

void TestTree::mouseEventsNameTheRow()
{
    QFETCH(int, column);
    m_poBrowser->addProperty(m_poManager->addProperty("a"));
    QtBrowserItem* itemB = m_poBrowser->addProperty(m_poManager->addProperty("b"));
    // No factory: the press must not open an editor that takes the release and double click.
    m_poBrowser->unsetFactoryForManager(m_poManager);
    QVERIFY(showWidget(m_poBrowser));
    QTRY_VERIFY(m_poView->visualRect(m_poView->model()->index(1, 1)).isValid());

    QList<QPair<QEvent::Type, QtBrowserItem*>> seen;
    connect(m_poBrowser, &QtTreePropertyBrowser::mouseEventSignal, this,
            [&seen](QMouseEvent* event, QtBrowserItem* item) {
                seen.append({event->type(), item});
            });
    const QPoint at = cellCentre(itemB, column);
    QTest::mousePress(m_poView->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(m_poView->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(m_poView->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(seen.size(), 3);
    QCOMPARE(seen.at(0).first, QEvent::MouseButtonPress);
    QCOMPARE(seen.at(1).first, QEvent::MouseButtonRelease);
    QCOMPARE(seen.at(2).first, QEvent::MouseButtonDblClick);
    for (const auto& event : qAsConst(seen))
        QCOMPARE(event.second, itemB);

    // Below the last row there is no row to name.
    seen.clear();
    QTest::mouseClick(m_poView->viewport(), Qt::LeftButton, {},
                      QPoint(at.x(), m_poView->viewport()->height() - 2));
    QVERIFY(seen.isEmpty());
}

QTEST_MAIN(TestTree)
#include "tst_pb_tree.moc"
