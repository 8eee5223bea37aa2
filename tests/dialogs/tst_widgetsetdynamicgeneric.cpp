#include "dialogs/widgetsetdynamicgeneric.h"
#include "dialogs/widgetsetnode.h"
#include "navigator/itemdelegateparentselected.h"
#include "sdk/ditem.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetnode.h"

#include "testsupport.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>
#include <QTreeWidgetItemIterator>

#include <memory>
#include <vector>

using PropertyBrowser::Editors::WidgetSetDynamicGeneric;
using PropertyBrowser::Editors::WidgetSetNode;
using Script::DItem;

namespace {

/// Nodes made from paths, kept for the test's duration.
class Nodes
{
public:
    DItem* add(const QString& path, const QString& icon = QString())
    {
        m_lNodes.push_back(std::make_unique<DItem>(path, QStringLiteral("IDataBasicInt")));
        m_lNodes.back()->setIconPath(icon);
        return m_lNodes.back().get();
    }
    QList<DItem*> list(const QStringList& paths, const QString& icon = QString())
    {
        QList<DItem*> result;
        for (const QString& path : paths)
            result.append(add(path, icon));
        return result;
    }

private:
    std::vector<std::unique_ptr<DItem>> m_lNodes;
};

/// Translates names of the "IData" context from a table.
class NameTranslator : public QTranslator
{
public:
    QHash<QString, QString> names;
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return QByteArray(context) == "IData" ? names.value(QString::fromUtf8(source)) : QString();
    }
};

// The item texts of the tree, depth first, with the children indented by two blanks.
QStringList outline(QTreeWidget* tree)
{
    QStringList lines;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        int depth = 0;
        for (QTreeWidgetItem* up = (*it)->parent(); up; up = up->parent())
            ++depth;
        lines.append(QString(depth * 2, ' ') + (*it)->text(0));
    }
    return lines;
}

// A double click as the user makes it: the first click, then the second as a double click.
void doubleClick(QTreeWidget* tree, QTreeWidgetItem* item)
{
    const QPoint centre = tree->visualItemRect(item).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, centre);
}

QTreeWidgetItem* itemAt(QTreeWidget* tree, const QStringList& texts)
{
    QTreeWidgetItem* item = tree->topLevelItem(0);
    if (!item || item->text(0) != texts.first())
        return nullptr;
    for (int i = 1; i < texts.size() && item; ++i) {
        QTreeWidgetItem* next = nullptr;
        for (int c = 0; c < item->childCount() && !next; ++c) {
            if (item->child(c)->text(0) == texts.at(i))
                next = item->child(c);
        }
        item = next;
    }
    return item;
}

} // namespace

class TestWidgetSetDynamicGeneric : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void form();
    void emptyListSaysSoAndLinksNothing();
    void emptyNodePathMarksTheRoot();
    void withoutIconNodesNoIcons();
    void siblingsShareTheirParent();
    void laterPathsHangBelowTheFirstRoot();
    void repeatedPathAddsNothing();
    void selectionOpensOnlyTheAncestors();
    void selectionEnablesTheDialog();
    void unknownOrShortPathSelectsNothing_data();
    void unknownOrShortPathSelectsNothing();
    void iconsGoByTheLastComponent();
    void namesAreTranslatedAndMergeWhenAlike();
    void namesBeyondAsciiBuildTheTree_data();
    void namesBeyondAsciiBuildTheTree();
    void resetClearsTheSelection();
    void doubleClickOnALeafAcceptsTheDialog();
    void treeGetsTheFocus();
};

void TestWidgetSetDynamicGeneric::form()
{
    WidgetSetDynamicGeneric picker;
    QCOMPARE(picker.objectName(), QStringLiteral("WidgetSetDynamicGeneric"));
    QCOMPARE(picker.windowTitle(), QStringLiteral("Dynamic links"));
    QCOMPARE(picker.minimumSize(), QSize(300, 350));
    QTreeWidget* tree = picker.ui->m_poTreeWidget;
    QVERIFY(tree->isHeaderHidden());
    QCOMPARE(tree->headerItem()->text(0), QStringLiteral("1"));
    QCOMPARE(tree->minimumSize(), QSize(170, 350));
    QCOMPARE(tree->textElideMode(), Qt::ElideLeft);
    QVERIFY(tree->wordWrap());
    QCOMPARE(tree->iconSize(), QSize(24, 48));
    QVERIFY(picker.ui->m_poCbxDynamic->isHidden());
    QCOMPARE(picker.ui->m_poCbxDynamic->count(), 0);
}

void TestWidgetSetDynamicGeneric::emptyListSaysSoAndLinksNothing()
{
    WidgetSetNode dialog;
    auto* picker = new WidgetSetDynamicGeneric(&dialog);
    QSignalSpy linked(picker, &WidgetSetDynamicGeneric::nodeLinked);
    Nodes nodes;
    picker->generateTree({{}, nodes.list({QStringLiteral("Job.A.B")})}, QStringLiteral("Job.A.B"));
    QCOMPARE(linked.count(), 0);
    QTreeWidget* tree = picker->ui->m_poTreeWidget;
    QCOMPARE(outline(tree), QStringList {QStringLiteral("No linkable nodes found !")});
    QVERIFY(!tree->isEnabled());
    QVERIFY(!tree->topLevelItem(0)->icon(0).isNull());
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(!dialog.ui->m_ResetBtn->isEnabled());
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
}

void TestWidgetSetDynamicGeneric::emptyNodePathMarksTheRoot()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    QList<DItem*> linkable = nodes.list({QStringLiteral("Job.A")});
    linkable.append(nodes.add(QString()));
    picker.generateTree({linkable, {}}, QString());
    QTreeWidget* tree = picker.ui->m_poTreeWidget;
    QCOMPARE(outline(tree),
             (QStringList {QStringLiteral("No linkable nodes found !"), QStringLiteral("  A")}));
    QVERIFY(!tree->isEnabled());
    QVERIFY(qobject_cast<ItemDelegateParentSelected*>(tree->itemDelegate()));
}

void TestWidgetSetDynamicGeneric::withoutIconNodesNoIcons()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree(
        {nodes.list({QStringLiteral("Job.A.B")}, QStringLiteral(":/images/cs_origin.svg")), {}},
        QString());
    QCOMPARE(outline(picker.ui->m_poTreeWidget), (QStringList {"Job", "  A", "    B"}));
    for (QTreeWidgetItemIterator it(picker.ui->m_poTreeWidget); *it; ++it)
        QVERIFY((*it)->icon(0).isNull());
}

void TestWidgetSetDynamicGeneric::siblingsShareTheirParent()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree({nodes.list({QStringLiteral("Job.A.B"), QStringLiteral("Job.A.C")}), {}},
                        QString());
    QTreeWidget* tree = picker.ui->m_poTreeWidget;
    QCOMPARE(outline(tree), (QStringList {"Job", "  A", "    B", "    C"}));
    // An item made on the way to a deeper node carries that node's path.
    QCOMPARE(itemAt(tree, {"Job", "A"})->data(0, Qt::UserRole).toString(),
             QStringLiteral("Job.A.B"));
    QCOMPARE(itemAt(tree, {"Job", "A", "C"})->data(0, Qt::UserRole).toString(),
             QStringLiteral("Job.A.C"));
    QVERIFY(tree->topLevelItem(0)->isExpanded());
}

void TestWidgetSetDynamicGeneric::laterPathsHangBelowTheFirstRoot()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree({nodes.list({QStringLiteral("Job.A"), QStringLiteral("Other.X")}), {}},
                        QString());
    QCOMPARE(outline(picker.ui->m_poTreeWidget), (QStringList {"Job", "  A", "  X"}));
}

void TestWidgetSetDynamicGeneric::repeatedPathAddsNothing()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree({nodes.list({QStringLiteral("Job.A.B"), QStringLiteral("Job.A.B"),
                                     QStringLiteral("Job.A")}),
                         {}},
                        QString());
    QCOMPARE(outline(picker.ui->m_poTreeWidget), (QStringList {"Job", "  A", "    B"}));
    // The same without the builder's index, through the plain operation.
    picker.createTree(QStringLiteral("Job.A.B"), picker.ui->m_poTreeWidget->topLevelItem(0));
    picker.createTree(QStringLiteral("Job.A.D"), picker.ui->m_poTreeWidget->topLevelItem(0));
    QCOMPARE(outline(picker.ui->m_poTreeWidget), (QStringList {"Job", "  A", "    B", "    D"}));
}

void TestWidgetSetDynamicGeneric::selectionOpensOnlyTheAncestors()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree({nodes.list({QStringLiteral("Job.M.A.B"), QStringLiteral("Job.M.A.B.C"),
                                     QStringLiteral("Job.N.X")}),
                         {}},
                        QStringLiteral("Job.M.A.B"));
    QTreeWidget* tree = picker.ui->m_poTreeWidget;
    QTreeWidgetItem* selected = itemAt(tree, {"Job", "M", "A", "B"});
    QVERIFY(selected);
    QCOMPARE(tree->selectedItems(), QList<QTreeWidgetItem*> {selected});
    QVERIFY(itemAt(tree, {"Job", "M", "A"})->isExpanded());
    QVERIFY(itemAt(tree, {"Job", "M"})->isExpanded());
    QVERIFY(!selected->isExpanded());
    QVERIFY(!itemAt(tree, {"Job", "N"})->isExpanded());
}

void TestWidgetSetDynamicGeneric::selectionEnablesTheDialog()
{
    WidgetSetNode dialog;
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    auto* picker = new WidgetSetDynamicGeneric(&dialog);
    QSignalSpy linked(picker, &WidgetSetDynamicGeneric::nodeLinked);
    Nodes nodes;
    picker->generateTree(
        {nodes.list({QStringLiteral("Job.A.Out"), QStringLiteral("Job.B.Out")}), {}},
        QStringLiteral("Job.B.Out"));
    QCOMPARE(linked.count(), 1);
    QCOMPARE(linked.first().first().toBool(), true);
    QVERIFY(dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
    const QList<QTreeWidgetItem*> selected = picker->ui->m_poTreeWidget->selectedItems();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first()->data(0, Qt::UserRole).toString(), QStringLiteral("Job.B.Out"));
}

void TestWidgetSetDynamicGeneric::unknownOrShortPathSelectsNothing_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << QString();
    QTest::newRow("one component") << QStringLiteral("Job");
    QTest::newRow("gone") << QStringLiteral("Job.C.Out");
    QTest::newRow("inner item") << QStringLiteral("Job.A");
}

void TestWidgetSetDynamicGeneric::unknownOrShortPathSelectsNothing()
{
    QFETCH(QString, path);
    WidgetSetNode dialog;
    dialog.ui->rbDynamicValue->setChecked(true);
    auto* picker = new WidgetSetDynamicGeneric(&dialog);
    QSignalSpy linked(picker, &WidgetSetDynamicGeneric::nodeLinked);
    Nodes nodes;
    picker->generateTree({nodes.list({QStringLiteral("Job.A.Out")}), {}}, path);
    QCOMPARE(linked.count(), 1);
    QCOMPARE(linked.first().first().toBool(), false);
    QVERIFY(picker->ui->m_poTreeWidget->selectedItems().isEmpty());
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
}

void TestWidgetSetDynamicGeneric::iconsGoByTheLastComponent()
{
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    const QString first = QStringLiteral(":/images/cs_origin.svg");
    const QString second = QStringLiteral(":/images/file_open.svg");
    const QList<DItem*> linkable
        = nodes.list({QStringLiteral("Job.A.Image"), QStringLiteral("Job.B.Image"),
                      QStringLiteral("Job.B.Other")});
    QList<DItem*> iconNodes {nodes.add(QStringLiteral("Job.X.Image"), first),
                             nodes.add(QStringLiteral("Job.Y.Image"), second),
                             nodes.add(QStringLiteral("Job.Z.Other"), QString())};
    picker.generateTree({linkable, iconNodes}, QString());
    QTreeWidget* tree = picker.ui->m_poTreeWidget;
    // Every item named like the last component takes the icon; the later node wins.
    const QIcon a = itemAt(tree, {"Job", "A", "Image"})->icon(0);
    const QIcon b = itemAt(tree, {"Job", "B", "Image"})->icon(0);
    QVERIFY(!a.isNull() && !b.isNull());
    QCOMPARE(a.pixmap(16).toImage(), QIcon(second).pixmap(16).toImage());
    QCOMPARE(b.pixmap(16).toImage(), QIcon(second).pixmap(16).toImage());
    QVERIFY(a.pixmap(16).toImage() != QIcon(first).pixmap(16).toImage());
    // A node without an icon path leaves its namesakes without one.
    QVERIFY(itemAt(tree, {"Job", "B", "Other"})->icon(0).isNull());
    QVERIFY(itemAt(tree, {"Job", "A"})->icon(0).isNull());
}

void TestWidgetSetDynamicGeneric::namesAreTranslatedAndMergeWhenAlike()
{
    NameTranslator translator;
    translator.names.insert(QStringLiteral("Camera"), QStringLiteral("Kamera"));
    translator.names.insert(QStringLiteral("Cam"), QStringLiteral("Kamera"));
    translator.names.insert(QStringLiteral("Out"), QStringLiteral("Ausgang"));
    QCoreApplication::installTranslator(&translator);
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree(
        {nodes.list({QStringLiteral("Job.Camera.Out"), QStringLiteral("Job.Cam.X")}), {}},
        QStringLiteral("Job.Camera.Out"));
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(outline(picker.ui->m_poTreeWidget),
             (QStringList {"Job", "  Kamera", "    Ausgang", "    X"}));
    QCOMPARE(picker.ui->m_poTreeWidget->selectedItems().size(), 1);
}

void TestWidgetSetDynamicGeneric::namesBeyondAsciiBuildTheTree_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QStringList>("expected");
    // The tree shows a name beyond ASCII as its UTF-8 bytes read as Latin-1, which is what the
    // host's catalogue of names is keyed by.
    const auto shown = [](const char* utf8) {
        return QString::fromLatin1(utf8);
    };
    QTest::newRow("umlaut leaf") << QStringList {QStringLiteral("Job.A.Größe")}
                                 << QStringList {"Job", "  A", "    " + shown("Größe")};
    QTest::newRow("umlaut group shared")
        << QStringList {QStringLiteral("Job.Größe.X"), QStringLiteral("Job.Größe.Y")}
        << QStringList {"Job", "  " + shown("Größe"), "    X", "    Y"};
    QTest::newRow("sharp s repeated")
        << QStringList {QStringLiteral("Job.Maß.Wert"), QStringLiteral("Job.Maß.Wert")}
        << QStringList {"Job", "  " + shown("Maß"), "    Wert"};
    QTest::newRow("deep and mixed")
        << QStringList {QStringLiteral("Job.Ölstand.Übersicht.Äußeres"),
                        QStringLiteral("Job.Ölstand.B"), QStringLiteral("Job.Ölstand.Übersicht.C")}
        << QStringList {"Job",
                        "  " + shown("Ölstand"),
                        "    " + shown("Übersicht"),
                        "      " + shown("Äußeres"),
                        "      C",
                        "    B"};
    QTest::newRow("root") << QStringList {QStringLiteral("Jöb.A"), QStringLiteral("Jöb.ä")}
                          << QStringList {shown("Jöb"), "  A", "  " + shown("ä")};
}

void TestWidgetSetDynamicGeneric::namesBeyondAsciiBuildTheTree()
{
    QFETCH(QStringList, paths);
    QFETCH(QStringList, expected);
    WidgetSetDynamicGeneric picker;
    Nodes nodes;
    picker.generateTree({nodes.list(paths), {}}, paths.first());
    QTreeWidget* tree = picker.ui->m_poTreeWidget;
    QCOMPARE(outline(tree), expected);
    const QList<QTreeWidgetItem*> selected = tree->selectedItems();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first()->data(0, Qt::UserRole).toString(), paths.first());
    QCOMPARE(selected.first()->childCount(), 0);
    // Without the builder's index, placing the same paths again finds every item.
    for (const QString& path : qAsConst(paths))
        picker.createTree(path, tree->topLevelItem(0));
    QCOMPARE(outline(tree), expected);
}

void TestWidgetSetDynamicGeneric::resetClearsTheSelection()
{
    WidgetSetNode dialog;
    auto* picker = new WidgetSetDynamicGeneric(&dialog);
    dialog.ui->pageDynamic->layout()->addWidget(picker);
    Nodes nodes;
    picker->generateTree({nodes.list({QStringLiteral("Job.A.Out")}), {}},
                         QStringLiteral("Job.A.Out"));
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
    int ended = -1;
    const TestSupport::ModalRun run = TestSupport::runModal(
        [&] { ended = dialog.exec(); }, [&dialog](QDialog&) { dialog.ui->m_ResetBtn->click(); });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(ended, int(QDialog::Accepted));
    QVERIFY(picker->ui->m_poTreeWidget->selectedItems().isEmpty());
    QCOMPARE(picker->ui->m_poCbxDynamic->currentIndex(), -1);
}

void TestWidgetSetDynamicGeneric::doubleClickOnALeafAcceptsTheDialog()
{
    WidgetSetNode dialog;
    auto* picker = new WidgetSetDynamicGeneric(&dialog);
    dialog.ui->pageDynamic->layout()->addWidget(picker);
    dialog.ui->rbDynamicValue->setChecked(true);
    Nodes nodes;
    picker->generateTree({nodes.list({QStringLiteral("Job.A.Out")}), {}}, QString());
    QTreeWidget* tree = picker->ui->m_poTreeWidget;
    bool groupKeptItOpen = false;
    int ended = -1;
    const TestSupport::ModalRun run
        = TestSupport::runModal([&] { ended = dialog.exec(); },
                                [&](QDialog&) {
                                    tree->expandAll();
                                    doubleClick(tree, itemAt(tree, {"Job", "A"}));
                                    groupKeptItOpen = dialog.isVisible();
                                    // The double click folded the group; the leaf must be on screen
                                    // again.
                                    tree->expandAll();
                                    doubleClick(tree, itemAt(tree, {"Job", "A", "Out"}));
                                });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(ended, int(QDialog::Accepted));
    QVERIFY(groupKeptItOpen);
    QCOMPARE(tree->currentItem()->data(0, Qt::UserRole).toString(), QStringLiteral("Job.A.Out"));
}

void TestWidgetSetDynamicGeneric::treeGetsTheFocus()
{
    WidgetSetDynamicGeneric picker;
    picker.show();
    QVERIFY(QTest::qWaitForWindowActive(&picker));
    QTRY_VERIFY(picker.ui->m_poTreeWidget->hasFocus());
}

QTEST_MAIN(TestWidgetSetDynamicGeneric)
#include "tst_widgetsetdynamicgeneric.moc"
