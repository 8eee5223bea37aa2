#ifndef MANAGERTESTSUPPORT_H
#define MANAGERTESTSUPPORT_H

#include "sdk/command.h"
#include "sdk/ditem.h"

#include <QIcon>
#include <QImage>
#include <QList>
#include <QSignalSpy>
#include <QTest>

/// What the tests of the property managers share: the node-state table, the link icons and the
/// check of an edit command.
namespace ManagerTest {

/// The link icon a row shows.
enum class Chain { None, Open, Closed, Partial };

/// Pixels of @p icon at the size the tree shows it.
inline QImage iconImage(const QIcon& icon)
{
    return icon.pixmap(16, 16).toImage();
}

/// Pixels of the link icon @p chain, or a null image for none.
inline QImage chainImage(Chain chain)
{
    switch (chain) {
    case Chain::Open:
        return iconImage(QIcon(QStringLiteral(":/images/chain_open.svg")));
    case Chain::Closed:
        return iconImage(QIcon(QStringLiteral(":/images/chain_closed.svg")));
    case Chain::Partial:
        return iconImage(QIcon(QStringLiteral(":/images/chain_partial.svg")));
    case Chain::None:
        break;
    }
    return QImage();
}

/// Checks that the link icons load and look different from each other and from no icon; if they
/// did not, every row compared with chainImage() would pass whatever icon it showed.
inline void verifyChainImagesDiffer()
{
    const QList<QImage> chains
        = {chainImage(Chain::Open), chainImage(Chain::Closed), chainImage(Chain::Partial)};
    for (int i = 0; i < chains.size(); ++i) {
        QVERIFY(!chains.at(i).isNull());
        QVERIFY(chains.at(i) != chainImage(Chain::None));
        for (int j = i + 1; j < chains.size(); ++j)
            QVERIFY(chains.at(i) != chains.at(j));
    }
}

/// Checks the spy's emission @p index of vPropertyEdited, argument by argument.
inline void verifyEdit(const QSignalSpy& spy, int index, const QString& path,
                       VardeenDefs::PropertyEditor::Command command, const QVariant& params)
{
    QVERIFY(spy.count() > index);
    const QList<QVariant> arguments = spy.at(index);
    QCOMPARE(arguments.at(0).toString(), path);
    QCOMPARE(arguments.at(1).value<VardeenDefs::PropertyEditor::Command>(), command);
    QCOMPARE(arguments.at(2).userType(), params.userType());
    QCOMPARE(arguments.at(2), params);
    QCOMPARE(arguments.at(3).userType(), int(QMetaType::Bool));
    QCOMPARE(arguments.at(3).toBool(), false);
}

/// Checks that the spy holds exactly one emission of vPropertyEdited, and that one.
inline void verifyOnlyEdit(const QSignalSpy& spy, const QString& path,
                           VardeenDefs::PropertyEditor::Command command, const QVariant& params)
{
    QCOMPARE(spy.count(), 1);
    verifyEdit(spy, 0, path, command, params);
}

/// Adds the columns of a node's state to the current data table.
inline void addNodeStateColumns()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("linkable");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<bool>("linkError");
    QTest::addColumn<bool>("error");
    QTest::addColumn<bool>("initialized");
    QTest::addColumn<int>("outOfRange");
}

/// Gives @p node the state of the current data row; a linked node follows "Job.Other.Source".
inline void applyNodeState(Script::DItem& node)
{
    QFETCH(int, ioType);
    QFETCH(bool, linkable);
    QFETCH(bool, linked);
    QFETCH(bool, linkError);
    QFETCH(bool, error);
    QFETCH(bool, initialized);
    QFETCH(int, outOfRange);
    node.setIoType(static_cast<Script::DItem::IoType>(ioType));
    node.setLinkable(linkable);
    node.setLinked(linked);
    node.setLinkedPath(linked ? QStringLiteral("Job.Other.Source") : QString());
    node.setLinkError(linkError);
    node.setErrorState(error);
    node.setInitialized(initialized);
    node.setOutOfRangeCounter(outOfRange);
}

} // namespace ManagerTest

Q_DECLARE_METATYPE(ManagerTest::Chain)

#endif
