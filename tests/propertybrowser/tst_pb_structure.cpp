#include "qttreepropertybrowser.h"
#include "showwidget.h"
#include "testsupport.h"
#include "tinymanager.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

Q_DECLARE_METATYPE(QtBrowserItem*)

namespace {

/// The names of the top-level properties, in their order.
QStringList names(const QList<QtProperty*>& properties)
{
    QStringList result;
    for (const QtProperty* property : properties)
        result << property->propertyName();
    return result;
}

/// The texts of column @p column of the rows below @p parent, as the view reads them.
QStringList rowTexts(const QAbstractItemModel* model, const QModelIndex& parent = {},
                     int column = 0)
{
    QStringList result;
    for (int row = 0; row < model->rowCount(parent); ++row)
        result << model->index(row, column, parent).data().toString();
    return result;
}

} // namespace

class TestStructure : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void addKeepsOrderAndRefusesDuplicates();
    void insertAfter_data();
    void insertAfter();
    void removeTopLevel();
    void samePropertyInTwoPlaces();
    void subPropertiesAddedAfterShown();
    void subPropertyRemovedAndDestroyed();
    void destroyedTopLevelPropertyLeaves();
    void valueChangeIsOneRowUpdate();
    void disabledParentDisablesChildren();
    void currentItem();
    void clearRemovesEverything();
    void rowsStayConsistent_data();
    void rowsStayConsistent();

private:
    QtTreePropertyBrowser* m_poBrowser = nullptr;
    TinyManager* m_poManager = nullptr;
    QAbstractItemModel* m_poModel = nullptr;
    QAbstractItemModelTester* m_poTester = nullptr;
};

void TestStructure::initTestCase()
{
    TestSupport::failOnWarnings();
    qRegisterMetaType<QtBrowserItem*>();
}

void TestStructure::init()
{
    m_poBrowser = new QtTreePropertyBrowser;
    m_poManager = new TinyManager;
    m_poModel = m_poBrowser->findChild<QTreeView*>()->model();
    // Checks every change against the item-model contract as it happens.
    m_poTester = new QAbstractItemModelTester(
        m_poModel, QAbstractItemModelTester::FailureReportingMode::QtTest);
}

void TestStructure::cleanup()
{
    delete m_poTester;
    delete m_poBrowser;
    delete m_poManager;
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestStructure::addKeepsOrderAndRefusesDuplicates()
{
    QtProperty* a = m_poManager->addProperty("a");
    QtProperty* b = m_poManager->addProperty("b");
    QtBrowserItem* itemA = m_poBrowser->addProperty(a);
    QtBrowserItem* itemB = m_poBrowser->addProperty(b);
    QVERIFY(itemA && itemB);
    QCOMPARE(itemA->property(), a);
    QCOMPARE(itemA->parent(), nullptr);
    QCOMPARE(itemA->browser(), m_poBrowser);
    QCOMPARE(m_poBrowser->addProperty(a), nullptr);
    QCOMPARE(m_poBrowser->addProperty(nullptr), nullptr);
    QCOMPARE(names(m_poBrowser->properties()), QStringList({"a", "b"}));
    QCOMPARE(m_poBrowser->topLevelItems(), QList<QtBrowserItem*>({itemA, itemB}));
    QCOMPARE(m_poBrowser->topLevelItem(b), itemB);
    QCOMPARE(rowTexts(m_poModel), QStringList({"a", "b"}));
    QCOMPARE(rowTexts(m_poModel, {}, 1), QStringList({"0", "0"}));
}

void TestStructure::insertAfter_data()
{
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("null puts it first") << QString() << QStringList({"new", "a", "b", "c"});
    QTest::newRow("after the first") << "a" << QStringList({"a", "new", "b", "c"});
    QTest::newRow("after the middle") << "b" << QStringList({"a", "b", "new", "c"});
    QTest::newRow("after the last") << "c" << QStringList({"a", "b", "c", "new"});
    QTest::newRow("not top level puts it first")
        << "stranger" << QStringList({"new", "a", "b", "c"});
}

void TestStructure::insertAfter()
{
    QFETCH(QString, after);
    QFETCH(QStringList, expected);

    QHash<QString, QtProperty*> byName;
    for (const char* name : {"a", "b", "c", "stranger"})
        byName.insert(name, m_poManager->addProperty(name));
    for (const char* name : {"a", "b", "c"})
        m_poBrowser->addProperty(byName.value(name));
    QtProperty* added = m_poManager->addProperty("new");
    QtBrowserItem* item = m_poBrowser->insertProperty(added, byName.value(after));
    QVERIFY(item);
    QCOMPARE(names(m_poBrowser->properties()), expected);
    QCOMPARE(rowTexts(m_poModel), expected);
    QCOMPARE(m_poBrowser->insertProperty(added, nullptr), nullptr);
}

void TestStructure::removeTopLevel()
{
    QtProperty* group = m_poManager->addProperty("group");
    QtProperty* child = m_poManager->addProperty("child");
    group->addSubProperty(child);
    QtProperty* other = m_poManager->addProperty("other");
    m_poBrowser->addProperty(group);
    m_poBrowser->addProperty(other);
    QCOMPARE(m_poBrowser->items(child).size(), 1);

    // Only top-level properties can be removed this way.
    m_poBrowser->removeProperty(child);
    QCOMPARE(m_poBrowser->items(child).size(), 1);

    m_poBrowser->removeProperty(group);
    QCOMPARE(names(m_poBrowser->properties()), QStringList({"other"}));
    QVERIFY(m_poBrowser->items(group).isEmpty());
    QVERIFY(m_poBrowser->items(child).isEmpty());
    QCOMPARE(rowTexts(m_poModel), QStringList({"other"}));
    // The properties stay; other browsers may show them.
    QCOMPARE(m_poManager->properties().size(), 3);
    QCOMPARE(group->subProperties(), QList<QtProperty*>({child}));
}

void TestStructure::samePropertyInTwoPlaces()
{
    QtProperty* shared = m_poManager->addProperty("shared");
    QtProperty* group = m_poManager->addProperty("group");
    group->addSubProperty(shared);
    QtBrowserItem* top = m_poBrowser->addProperty(shared);
    QtBrowserItem* groupItem = m_poBrowser->addProperty(group);
    QCOMPARE(groupItem->children().size(), 1);
    QtBrowserItem* below = groupItem->children().first();
    QCOMPARE(below->parent(), groupItem);
    // In the order the items were made, as the published browser gives them.
    QCOMPARE(m_poBrowser->items(shared), QList<QtBrowserItem*>({top, below}));
    QtProperty* otherGroup = m_poManager->addProperty("other group");
    otherGroup->addSubProperty(shared);
    QtBrowserItem* otherItem = m_poBrowser->addProperty(otherGroup);
    QCOMPARE(m_poBrowser->items(shared),
             QList<QtBrowserItem*>({top, below, otherItem->children().first()}));
    m_poBrowser->removeProperty(otherGroup);
    QCOMPARE(m_poBrowser->items(shared), QList<QtBrowserItem*>({top, below}));

    m_poManager->setValue(shared, 42);
    const QModelIndex groupIndex = m_poModel->index(1, 0);
    QCOMPARE(m_poModel->index(0, 1).data().toString(), QString("42"));
    QCOMPARE(m_poModel->index(0, 1, groupIndex).data().toString(), QString("42"));

    group->removeSubProperty(shared);
    QCOMPARE(m_poBrowser->items(shared), QList<QtBrowserItem*>({top}));
    QCOMPARE(m_poModel->rowCount(groupIndex), 0);
}

void TestStructure::subPropertiesAddedAfterShown()
{
    m_poBrowser->resize(300, 400);
    QVERIFY(showWidget(m_poBrowser));
    QtProperty* group = m_poManager->addProperty("group");
    QtBrowserItem* groupItem = m_poBrowser->addProperty(group);
    QCoreApplication::processEvents();

    QtProperty* first = m_poManager->addProperty("first");
    QtProperty* last = m_poManager->addProperty("last");
    QtProperty* middle = m_poManager->addProperty("middle");
    group->addSubProperty(first);
    group->addSubProperty(last);
    group->insertSubProperty(middle, first);
    QCOMPARE(groupItem->children().size(), 3);
    QCOMPARE(groupItem->childCount(), 3);
    const QModelIndex groupIndex = m_poModel->index(0, 0);
    QCOMPARE(rowTexts(m_poModel, groupIndex), QStringList({"first", "middle", "last"}));

    auto* view = m_poBrowser->findChild<QTreeView*>();
    QTRY_VERIFY(view->isExpanded(groupIndex));
    const QRect lastRect = view->visualRect(m_poModel->index(2, 0, groupIndex));
    QVERIFY(view->viewport()->rect().intersects(lastRect));
    QVERIFY(m_poBrowser->isExpanded(groupItem));
}

void TestStructure::subPropertyRemovedAndDestroyed()
{
    QtProperty* group = m_poManager->addProperty("group");
    QtProperty* a = m_poManager->addProperty("a");
    QtProperty* b = m_poManager->addProperty("b");
    group->addSubProperty(a);
    group->addSubProperty(b);
    QtBrowserItem* groupItem = m_poBrowser->addProperty(group);
    QCOMPARE(groupItem->children().size(), 2);

    group->removeSubProperty(a);
    QCOMPARE(groupItem->children().size(), 1);
    QCOMPARE(groupItem->children().first()->property(), b);
    QVERIFY(m_poBrowser->items(a).isEmpty());

    delete b;
    QVERIFY(groupItem->children().isEmpty());
    QCOMPARE(m_poModel->rowCount(m_poModel->index(0, 0)), 0);
    QVERIFY(group->subProperties().isEmpty());
}

void TestStructure::destroyedTopLevelPropertyLeaves()
{
    QtProperty* a = m_poManager->addProperty("a");
    QtProperty* b = m_poManager->addProperty("b");
    m_poBrowser->addProperty(a);
    m_poBrowser->addProperty(b);
    delete a;
    QCOMPARE(names(m_poBrowser->properties()), QStringList({"b"}));
    QCOMPARE(rowTexts(m_poModel), QStringList({"b"}));
}

void TestStructure::valueChangeIsOneRowUpdate()
{
    QtProperty* property = m_poManager->addProperty("p");
    m_poBrowser->addProperty(property);
    QSignalSpy spy(m_poModel, &QAbstractItemModel::dataChanged);
    m_poManager->setValue(property, 7);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).toModelIndex(), m_poModel->index(0, 0));
    QCOMPARE(spy.at(0).at(1).toModelIndex(), m_poModel->index(0, 1));
    QCOMPARE(m_poModel->index(0, 1).data().toString(), QString("7"));

    property->setToolTip("tip");
    QCOMPARE(spy.size(), 2);
    QCOMPARE(m_poModel->index(0, 0).data(Qt::ToolTipRole).toString(), QString("tip"));
}

void TestStructure::disabledParentDisablesChildren()
{
    QtProperty* group = m_poManager->addProperty("group");
    QtProperty* child = m_poManager->addProperty("child");
    group->addSubProperty(child);
    m_poBrowser->addProperty(group);
    const QModelIndex childValue = m_poModel->index(0, 1, m_poModel->index(0, 0));
    QVERIFY(childValue.flags() & Qt::ItemIsEnabled);
    QVERIFY(childValue.flags() & Qt::ItemIsEditable);
    group->setEnabled(false);
    QVERIFY(!(childValue.flags() & Qt::ItemIsEnabled));
    QVERIFY(!(childValue.flags() & Qt::ItemIsEditable));
}

void TestStructure::currentItem()
{
    QtProperty* a = m_poManager->addProperty("a");
    QtProperty* b = m_poManager->addProperty("b");
    QtBrowserItem* itemA = m_poBrowser->addProperty(a);
    QtBrowserItem* itemB = m_poBrowser->addProperty(b);
    auto* view = m_poBrowser->findChild<QTreeView*>();
    QSignalSpy spy(m_poBrowser, &QtAbstractPropertyBrowser::currentItemChanged);

    m_poBrowser->setCurrentItem(itemB);
    QCOMPARE(m_poBrowser->currentItem(), itemB);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).value<QtBrowserItem*>(), itemB);
    QCOMPARE(view->currentIndex().row(), 1);
    m_poBrowser->setCurrentItem(itemB);
    QCOMPARE(spy.size(), 1);

    // The view's current row is the browser's current item.
    view->setCurrentIndex(m_poModel->index(0, 1));
    QCOMPARE(m_poBrowser->currentItem(), itemA);
    QCOMPARE(spy.size(), 2);

    m_poBrowser->removeProperty(a);
    QVERIFY(m_poBrowser->currentItem() != itemA);
    m_poBrowser->setCurrentItem(itemB);
    m_poBrowser->clear();
    QCOMPARE(m_poBrowser->currentItem(), nullptr);
    QCOMPARE(spy.last().at(0).value<QtBrowserItem*>(), nullptr);
}

void TestStructure::clearRemovesEverything()
{
    QtProperty* group = m_poManager->addProperty("group");
    group->addSubProperty(m_poManager->addProperty("child"));
    m_poBrowser->addProperty(group);
    m_poBrowser->addProperty(m_poManager->addProperty("plain"));
    QVERIFY(showWidget(m_poBrowser));

    m_poBrowser->clear();
    QVERIFY(m_poBrowser->properties().isEmpty());
    QVERIFY(m_poBrowser->topLevelItems().isEmpty());
    QVERIFY(m_poBrowser->items(group).isEmpty());
    QCOMPARE(m_poModel->rowCount(), 0);
    QCOMPARE(m_poManager->properties().size(), 3);

    // The browser keeps following the manager after a clear.
    QtBrowserItem* again = m_poBrowser->addProperty(group);
    QCOMPARE(again->children().size(), 1);
    group->addSubProperty(m_poManager->addProperty("late"));
    QCOMPARE(again->children().size(), 2);
}

void TestStructure::rowsStayConsistent_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed : {1u, 2u, 3u, 4u})
        QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed;
}

void TestStructure::rowsStayConsistent()
{
    // Random inserts and removals at the ends and in the middle, with row lookups between
    // them, against a plain list: the cached row numbers must never go wrong.
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    QtProperty* group = m_poManager->addProperty("group");
    QtBrowserItem* groupItem = m_poBrowser->addProperty(group);
    const QModelIndex groupIndex = m_poModel->index(0, 0);
    QList<QtProperty*> expected;
    auto* view = m_poBrowser->findChild<QTreeView*>();
    // Long enough that the log of shifted rows overflows and is folded in many times.
    for (int step = 0; step < 600; ++step) {
        const int choice = random.bounded(5);
        if (choice < 3 || expected.isEmpty()) {
            QtProperty* property = m_poManager->addProperty(QString::number(step));
            const int position = choice == 0 ? 0
                : choice == 1                ? expected.size()
                                             : random.bounded(expected.size() + 1);
            group->insertSubProperty(property, position == 0 ? nullptr : expected.at(position - 1));
            expected.insert(position, property);
        } else {
            const int position = choice == 3 ? 0 : random.bounded(expected.size());
            delete expected.takeAt(position);
        }
        const int probe = expected.isEmpty() ? -1 : random.bounded(expected.size());
        if (probe >= 0) {
            QtBrowserItem* item = m_poBrowser->items(expected.at(probe)).first();
            const QModelIndex index = m_poModel->index(probe, 0, groupIndex);
            QCOMPARE(index.internalPointer(), static_cast<void*>(item));
            QCOMPARE(m_poModel->parent(m_poModel->index(probe, 1, groupIndex)), groupIndex);
            // Making the item current asks the model for its row.
            m_poBrowser->setCurrentItem(item);
            QCOMPARE(view->currentIndex().row(), probe);
            QCOMPARE(view->currentIndex().internalPointer(), static_cast<void*>(item));
        }
    }
    QCOMPARE(groupItem->children().size(), expected.size());
    for (int row = 0; row < expected.size(); ++row) {
        QCOMPARE(groupItem->children().at(row)->property(), expected.at(row));
        QCOMPARE(m_poModel->index(row, 0, groupIndex).data().toString(),
                 expected.at(row)->propertyName());
    }
}

QTEST_MAIN(TestStructure)
#include "tst_pb_structure.moc"
