#include "editors/baseeditor.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"

#include "../navigator/tabletranslator.h"
#include "editortestsupport.h"
#include "testsupport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using IoType = Script::DItem::IoType;
using namespace EditorTestSupport;

namespace {

/// An editor as a concrete one is built: two input widgets as direct children, one of them
/// holding widgets of its own, a layout, and a first refresh at the end of construction.
class ProbeEditor : public BaseEditor
{
    Q_OBJECT

public:
    ProbeEditor(QWidget* parent, WidgetProperty* row, bool refresh = true)
        : BaseEditor(parent, row, TypeInt)
        , input(new QLineEdit(this))
        , group(new QWidget(this))
        , nestedShown(new QLabel(QStringLiteral("shown"), group))
        , nestedHidden(new QLabel(QStringLiteral("hidden"), group))
    {
        // Counted outside the editor, so that a call after its end can still be seen.
        connect(input, &QLineEdit::editingFinished, this, [ends = editingEnds] { ++*ends; });
        nestedHidden->hide();
        auto* layout = new QHBoxLayout;
        layout->setSpacing(0);
        layout->setContentsMargins(4, 0, 0, 0);
        layout->addWidget(&m_linkLabel);
        layout->addWidget(input);
        layout->addWidget(group);
        layout->addWidget(&m_browseButton);
        setLayout(layout);
        if (refresh)
            refreshEditorData();
    }

    void showLinkWidget(QString path) override { m_linkPath = path; }
    void readData() override
    {
        ++reads;
        if (onRead)
            onRead();
    }

    using BaseEditor::keyPressEvent;

    QLabel& label() { return m_linkLabel; }
    QPushButton& button() { return m_browseButton; }
    EditorType editorType() const { return m_editorType; }
    WidgetProperty* row() const { return m_property; }

    int reads = 0;
    std::function<void()> onRead;
    const std::shared_ptr<int> editingEnds = std::make_shared<int>(0);
    QLineEdit* input;
    QWidget* group;
    QLabel* nestedShown;
    QLabel* nestedHidden;
};

} // namespace

class TestBaseEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void constructionSetsUpButtonAndLabel();
    void refreshDerivesMode_data();
    void refreshDerivesMode();
    void refreshReadsFirst();
    void refreshWithoutNodeOnlyReads();
    void refreshKeepsModeForUnknownKind();
    void modesSwitchDirectChildrenOnly_data();
    void modesSwitchDirectChildrenOnly();
    void linkedModeShowsAnchor_data();
    void linkedModeShowsAnchor();
    void stateModeShowsPlainValue();
    void sameModeRunsAllStepsAgain();
    void modeOutsideEnumerationOnlyStored();
    void anchorClickEmitsHrefUnchanged();
    void anchorActivationEmitsHrefUnchanged();
    void creationReportedAfter20ms();
    void earlyDestroyedEditorReportsNothing();
    void destroyedWithFocusReachesNoSlot();
    void errorLabel_data();
    void errorLabel();
    void errorLabelTranslatesWordsNotColours();
    void labelTextColour();
    void styleSheetFromResource();
    void keyPressLeftToParent();

private:
    /// A row of the integer manager bound to a new node at @p path.
    WidgetProperty* makeRow(const QString& path, IoType ioType);

    std::unique_ptr<PropertyBrowser::Managers::IntPropertyManager> m_poManager;
    std::unique_ptr<Script::DItem> m_poNode;
    std::unique_ptr<TableTranslator> m_poTranslator;
    QPointer<WTreePropertyBrowser> m_poBrowser;
};

void TestBaseEditor::initTestCase()
{
    initEditorTestCase();
}

void TestBaseEditor::init()
{
    m_poManager = std::make_unique<PropertyBrowser::Managers::IntPropertyManager>();
}

void TestBaseEditor::cleanup()
{
    delete m_poBrowser;
    m_poManager.reset();
    m_poNode.reset();
    if (m_poTranslator) {
        QCoreApplication::removeTranslator(m_poTranslator.get());
        m_poTranslator.reset();
    }
    verifyNothingLeftOpen();
}

WidgetProperty* TestBaseEditor::makeRow(const QString& path, IoType ioType)
{
    m_poNode = std::make_unique<Script::DItem>(path, QStringLiteral("IDataBasicInt"), ioType);
    m_poNode->setProperty("IDataNumeric.DynamicValue", 17);
    auto* row = dynamic_cast<WidgetProperty*>(m_poManager->addProperty(QStringLiteral("Row")));
    if (row)
        row->setData(*m_poNode);
    return row;
}

void TestBaseEditor::constructionSetsUpButtonAndLabel()
{
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    ProbeEditor editor(nullptr, row);
    QCOMPARE(editor.row(), row);
    QCOMPARE(editor.editorType(), BaseEditor::TypeInt);
    QCOMPARE(editor.button().parentWidget(), &editor);
    QCOMPARE(editor.label().parentWidget(), &editor);
    QCOMPARE(editor.button().sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(editor.button().sizePolicy().verticalPolicy(), QSizePolicy::Ignored);
    QCOMPARE(editor.button().minimumWidth(), 30);
    QCOMPARE(editor.button().maximumWidth(), 30);
    QVERIFY(!editor.button().icon().isNull());
    QCOMPARE(editor.button().cursor().shape(), Qt::ArrowCursor);
    QVERIFY(editor.button().testAttribute(Qt::WA_SetCursor));
    QCOMPARE(editor.button().focusPolicy(), Qt::NoFocus);
    QCOMPARE(editor.label().textFormat(), Qt::RichText);
    QCOMPARE(editor.label().textInteractionFlags(), Qt::TextBrowserInteraction);
    // The label opens nothing itself: the editor passes the link on.
    QVERIFY(!editor.label().openExternalLinks());
    // The constructor's refresh read the node once.
    QCOMPARE(editor.reads, 1);
    QCOMPARE(editor.mode(), BaseEditor::ModeLocal);
}

void TestBaseEditor::refreshDerivesMode_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<bool>("error");
    QTest::addColumn<bool>("initialized");
    QTest::addColumn<int>("mode");

    const int local = BaseEditor::ModeLocal;
    const int linked = BaseEditor::ModeLinked;
    const int state = BaseEditor::ModeState;
    QTest::newRow("setting") << 0 << false << false << false << local;
    QTest::newRow("linked setting") << 0 << true << false << false << linked;
    QTest::newRow("setting in error") << 0 << false << true << true << local;
    QTest::newRow("input") << 1 << false << false << false << local;
    QTest::newRow("linked input") << 1 << true << false << false << linked;
    QTest::newRow("input in error") << 1 << false << true << true << local;
    QTest::newRow("output") << 2 << false << false << false << local;
    QTest::newRow("output in error") << 2 << false << true << false << state;
    QTest::newRow("initialised output") << 2 << false << false << true << state;
    QTest::newRow("linked output") << 2 << true << false << false << local;
}

void TestBaseEditor::refreshDerivesMode()
{
    QFETCH(int, ioType);
    QFETCH(bool, linked);
    QFETCH(bool, error);
    QFETCH(bool, initialized);
    QFETCH(int, mode);

    WidgetProperty* row = makeRow("Job.T.Value", static_cast<IoType>(ioType));
    m_poNode->setLinkable(linked);
    m_poNode->setLinked(linked);
    m_poNode->setLinkedPath(linked ? QStringLiteral("Job.Other.Source") : QString());
    m_poNode->setErrorState(error);
    m_poNode->setInitialized(initialized);
    ProbeEditor editor(nullptr, row);
    QCOMPARE(int(editor.mode()), mode);
    const bool local = mode == BaseEditor::ModeLocal;
    QCOMPARE(editor.input->isHidden(), !local);
    QCOMPARE(editor.group->isHidden(), !local);
    QCOMPARE(editor.label().isHidden(), local);
    QVERIFY(!editor.button().isHidden());

    // Each refresh derives the mode again from the node, and from nothing else.
    editor.setMode(local ? BaseEditor::ModeState : BaseEditor::ModeLocal);
    editor.refreshEditorData();
    QCOMPARE(int(editor.mode()), mode);
    QCOMPARE(editor.reads, 2);
}

void TestBaseEditor::refreshReadsFirst()
{
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    ProbeEditor editor(nullptr, row);
    QCOMPARE(editor.mode(), BaseEditor::ModeLocal);
    // What the read brings decides the mode.
    editor.onRead = [this] {
        m_poNode->setLinkable(true);
        m_poNode->setLinked(true);
        m_poNode->setLinkedPath(QStringLiteral("Job.Other.Source"));
    };
    editor.refreshEditorData();
    QCOMPARE(editor.mode(), BaseEditor::ModeLinked);
}

void TestBaseEditor::refreshWithoutNodeOnlyReads()
{
    ProbeEditor editor(nullptr, nullptr);
    QCOMPARE(editor.reads, 1);
    editor.setMode(BaseEditor::ModeState);
    editor.refreshEditorData();
    QCOMPARE(editor.reads, 2);
    QCOMPARE(editor.mode(), BaseEditor::ModeState);
}

void TestBaseEditor::refreshKeepsModeForUnknownKind()
{
    WidgetProperty* row = makeRow("Job.T.Value", static_cast<IoType>(3));
    m_poNode->setLinkable(true);
    m_poNode->setLinked(true);
    m_poNode->setErrorState(true);
    ProbeEditor editor(nullptr, row, false);
    editor.setMode(BaseEditor::ModeState);
    editor.refreshEditorData();
    QCOMPARE(editor.reads, 1);
    QCOMPARE(editor.mode(), BaseEditor::ModeState);
    editor.setMode(BaseEditor::ModeLocal);
    editor.refreshEditorData();
    QCOMPARE(editor.mode(), BaseEditor::ModeLocal);
}

void TestBaseEditor::modesSwitchDirectChildrenOnly_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("linked") << int(BaseEditor::ModeLinked);
    QTest::newRow("state") << int(BaseEditor::ModeState);
}

void TestBaseEditor::modesSwitchDirectChildrenOnly()
{
    QFETCH(int, mode);
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    ProbeEditor editor(nullptr, row);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QVERIFY(editor.input->isVisible());
    QVERIFY(editor.nestedShown->isVisible());
    QVERIFY(editor.nestedHidden->isHidden());

    editor.setMode(static_cast<BaseEditor::Mode>(mode));
    QCOMPARE(int(editor.mode()), mode);
    QVERIFY(editor.input->isHidden());
    QVERIFY(editor.group->isHidden());
    QVERIFY(editor.label().isVisible());
    QVERIFY(editor.button().isVisible());
    // Nested widgets keep what they were told; they only vanish with their parent.
    QVERIFY(!editor.nestedShown->isHidden());
    QVERIFY(editor.nestedHidden->isHidden());

    editor.setMode(BaseEditor::ModeLocal);
    QVERIFY(editor.input->isVisible());
    QVERIFY(editor.group->isVisible());
    QVERIFY(editor.nestedShown->isVisible());
    QVERIFY(editor.nestedHidden->isHidden());
    QVERIFY(editor.label().isHidden());
    QVERIFY(editor.button().isVisible());
}

void TestBaseEditor::linkedModeShowsAnchor_data()
{
    QTest::addColumn<bool>("linkError");
    QTest::addColumn<QString>("colour");
    QTest::newRow("good link") << false << "#000000";
    QTest::newRow("broken link") << true << "#ff0000";
}

void TestBaseEditor::linkedModeShowsAnchor()
{
    QFETCH(bool, linkError);
    QFETCH(QString, colour);

    // A setting takes links as an input does.
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoNone);
    m_poNode->setLinkable(true);
    m_poNode->setLinked(true);
    m_poNode->setLinkError(linkError);
    m_poNode->setLinkedPath(QStringLiteral("Job.Camera.Source"));
    ProbeEditor editor(nullptr, row);
    QCOMPARE(editor.mode(), BaseEditor::ModeLinked);
    QCOMPARE(row->valueText(), QStringLiteral("Source"));
    QCOMPARE(editor.label().text(),
             QStringLiteral("<a href=\"Job.Camera.Source\" style=\"color: %1; "
                            "text-decoration: none\">Source</a>")
                 .arg(colour));
    const QPalette palette = editor.label().palette();
    QCOMPARE(palette.color(QPalette::Active, QPalette::Link).name(), colour);
    QCOMPARE(palette.color(QPalette::Inactive, QPalette::Text).name(), colour);
    QVERIFY(editor.input->isHidden());
    QVERIFY(!editor.label().isHidden());
}

void TestBaseEditor::stateModeShowsPlainValue()
{
    WidgetProperty* row = makeRow("Job.T.Out", Script::DItem::IoOutput);
    m_poNode->setErrorState(true);
    ProbeEditor editor(nullptr, row);
    QCOMPARE(editor.mode(), BaseEditor::ModeState);
    QCOMPARE(editor.label().text(), QStringLiteral("Error"));
    QCOMPARE(editor.label().palette().color(QPalette::Text), QColor(Qt::red));

    m_poNode->setErrorState(false);
    m_poNode->setInitialized(true);
    editor.refreshEditorData();
    QCOMPARE(editor.label().text(), QStringLiteral("Not Available"));
    QCOMPARE(editor.label().palette().color(QPalette::Text), QColor(Qt::darkGray));
}

void TestBaseEditor::sameModeRunsAllStepsAgain()
{
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    m_poNode->setLinkable(true);
    m_poNode->setLinked(true);
    m_poNode->setLinkedPath(QStringLiteral("Job.A.First"));
    ProbeEditor editor(nullptr, row);
    QCOMPARE(editor.mode(), BaseEditor::ModeLinked);
    QVERIFY(editor.label().text().contains(QLatin1String("First</a>")));

    m_poNode->setLinkedPath(QStringLiteral("Job.B.Second"));
    m_poNode->setLinkError(true);
    editor.input->show();
    editor.button().hide();
    editor.label().hide();
    editor.setMode(BaseEditor::ModeLinked);
    QCOMPARE(editor.label().text(),
             QStringLiteral("<a href=\"Job.B.Second\" style=\"color: #ff0000; "
                            "text-decoration: none\">Second</a>"));
    QCOMPARE(editor.label().palette().color(QPalette::Link), QColor(Qt::red));
    QVERIFY(editor.input->isHidden());
    QVERIFY(!editor.button().isHidden());
    QVERIFY(!editor.label().isHidden());

    // The same for the local mode.
    editor.setMode(BaseEditor::ModeLocal);
    editor.input->hide();
    editor.label().show();
    editor.setMode(BaseEditor::ModeLocal);
    QVERIFY(!editor.input->isHidden());
    QVERIFY(editor.label().isHidden());
}

void TestBaseEditor::modeOutsideEnumerationOnlyStored()
{
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    m_poNode->setLinkable(true);
    m_poNode->setLinked(true);
    m_poNode->setLinkedPath(QStringLiteral("Job.A.First"));
    ProbeEditor editor(nullptr, row);
    const QString text = editor.label().text();
    m_poNode->setLinkedPath(QStringLiteral("Job.B.Second"));
    editor.setMode(static_cast<BaseEditor::Mode>(5));
    QCOMPARE(int(editor.mode()), 5);
    QCOMPARE(editor.label().text(), text);
    QVERIFY(editor.input->isHidden());
    QVERIFY(!editor.label().isHidden());
    editor.button().hide();
    editor.setMode(static_cast<BaseEditor::Mode>(-1));
    QCOMPARE(int(editor.mode()), -1);
    QVERIFY(editor.button().isHidden());
    QVERIFY(editor.input->isHidden());
    editor.setMode(static_cast<BaseEditor::Mode>(3));
    QCOMPARE(int(editor.mode()), 3);
    QVERIFY(editor.button().isHidden());
    QCOMPARE(editor.label().text(), text);
}

void TestBaseEditor::anchorClickEmitsHrefUnchanged()
{
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    const QString target = QStringLiteral("Job.Kamera 2.Ausgang_%20ü");
    m_poNode->setLinkable(true);
    m_poNode->setLinked(true);
    m_poNode->setLinkedPath(target);
    ProbeEditor editor(nullptr, row);
    QCOMPARE(editor.mode(), BaseEditor::ModeLinked);
    editor.resize(300, 30);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QSignalSpy clicked(&editor, &BaseEditor::vLinkClicked);
    QLabel& label = editor.label();
    // The anchor text starts at the left of the label, vertically centred.
    const QPoint onAnchor(label.contentsRect().left() + 3, label.height() / 2);
    QTest::mouseClick(&label, Qt::LeftButton, Qt::NoModifier, onAnchor);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), target);
    // A click beside the anchor does nothing.
    QTest::mouseClick(&label, Qt::LeftButton, Qt::NoModifier,
                      QPoint(label.width() - 2, label.height() / 2));
    QCOMPARE(clicked.count(), 1);
}

void TestBaseEditor::anchorActivationEmitsHrefUnchanged()
{
    ProbeEditor editor(nullptr, nullptr);
    QSignalSpy clicked(&editor, &BaseEditor::vLinkClicked);
    const QString href = QStringLiteral("Job.Tool.Out?x=1&y=%41");
    emit editor.label().linkActivated(href);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), href);
}

void TestBaseEditor::creationReportedAfter20ms()
{
    m_poBrowser = new WTreePropertyBrowser(nullptr);
    QSignalSpy editing(m_poBrowser.data(), &WTreePropertyBrowser::editing);
    QElapsedTimer clock;
    qint64 reportedAfter = -1;
    const QMetaObject::Connection timing
        = connect(m_poBrowser.data(), &WTreePropertyBrowser::editing, this,
                  [&](bool) { reportedAfter = clock.elapsed(); });
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);
    clock.start();
    auto* editor = new ProbeEditor(nullptr, row);
    QCOMPARE(editing.count(), 0);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    QTRY_COMPARE(editing.count(), 1);
    QCOMPARE(editing.at(0).at(0).toBool(), true);
    QVERIFY2(reportedAfter >= 20, qPrintable(QString::number(reportedAfter)));
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, editor);
    disconnect(timing);

    delete editor;
    QCOMPARE(editing.count(), 2);
    QCOMPARE(editing.at(1).at(0).toBool(), false);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

void TestBaseEditor::earlyDestroyedEditorReportsNothing()
{
    m_poBrowser = new WTreePropertyBrowser(nullptr);
    QSignalSpy editing(m_poBrowser.data(), &WTreePropertyBrowser::editing);
    WidgetProperty* row = makeRow("Job.T.Value", Script::DItem::IoInput);

    // A click that passes through: the editor goes at once.
    delete new ProbeEditor(nullptr, row);
    QCOMPARE(editing.count(), 0);

    // A second editor that lives: once it has reported, the first one's time has long passed.
    auto* lasting = new ProbeEditor(nullptr, row);
    QTRY_COMPARE(editing.count(), 1);
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, lasting);

    // One that goes early while another is open leaves the open one as it is.
    delete new ProbeEditor(nullptr, row);
    QCOMPARE(editing.count(), 1);
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, lasting);
    auto* probe = new ProbeEditor(nullptr, row);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, probe);
    QCOMPARE(editing.count(), 2);
    for (const QList<QVariant>& arguments : qAsConst(editing))
        QCOMPARE(arguments.at(0).toBool(), true);

    delete lasting;
    QCOMPARE(editing.count(), 2);
    delete probe;
    QCOMPARE(editing.count(), 3);
    QCOMPARE(editing.at(2).at(0).toBool(), false);
}

void TestBaseEditor::destroyedWithFocusReachesNoSlot()
{
    auto editor
        = std::make_unique<ProbeEditor>(nullptr, makeRow("Job.T.Value", Script::DItem::IoInput));
    const std::shared_ptr<int> ends = editor->editingEnds;
    editor->show();
    QVERIFY(QTest::qWaitForWindowActive(editor.get()));
    editor->input->setFocus();
    QTRY_VERIFY(editor->input->hasFocus());
    // Typed text that loses the focus ends the editing, as the input's owner sees it.
    QTest::keyClicks(editor->input, QStringLiteral("42"));
    editor->input->clearFocus();
    QCOMPARE(*ends, 1);
    editor->input->setFocus();
    QTRY_VERIFY(editor->input->hasFocus());
    QTest::keyClicks(editor->input, QStringLiteral("7"));
    // The input loses the focus again while the editor is taken down, after the concrete
    // editor's part is gone: that end of editing must reach none of its slots.
    editor.reset();
    QCOMPARE(*ends, 1);
}

void TestBaseEditor::errorLabel_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("error");
    QTest::addColumn<bool>("linkError");
    QTest::addColumn<bool>("initialized");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valueShown");

    const QString error = QStringLiteral("<p style=\"red\">Error<p>");
    const QString notAvailable = QStringLiteral("<p style=\"darkGray\">Not Available<p>");
    const QString empty = QStringLiteral("<p style=\"\"><p>");
    QTest::newRow("output in error") << 2 << true << false << false << error << false;
    QTest::newRow("initialised output in error") << 2 << true << true << true << error << false;
    QTest::newRow("input with broken link") << 1 << false << true << false << error << false;
    QTest::newRow("input otherwise") << 1 << true << false << true << empty << true;
    QTest::newRow("initialised output") << 2 << false << false << true << notAvailable << false;
    QTest::newRow("initialised output, broken link")
        << 2 << false << true << true << notAvailable << false;
    QTest::newRow("plain output") << 2 << false << true << false << empty << true;
    QTest::newRow("setting in every state") << 0 << true << true << true << empty << true;
    QTest::newRow("plain setting") << 0 << false << false << false << empty << true;
}

void TestBaseEditor::errorLabel()
{
    QFETCH(int, ioType);
    QFETCH(bool, error);
    QFETCH(bool, linkError);
    QFETCH(bool, initialized);
    QFETCH(QString, text);
    QFETCH(bool, valueShown);

    ProbeEditor editor(nullptr, nullptr);
    Script::DItem item(QStringLiteral("Job.T.Value"), QStringLiteral("IDataBasicInt"),
                       static_cast<IoType>(ioType));
    item.setErrorState(error);
    item.setLinkError(linkError);
    item.setInitialized(initialized);
    QLabel label(QStringLiteral("former text"));
    QCOMPARE(editor.setupAndShowErrorLabel(label, item), valueShown);
    QCOMPARE(label.text(), text);
}

void TestBaseEditor::errorLabelTranslatesWordsNotColours()
{
    m_poTranslator = std::make_unique<TableTranslator>();
    m_poTranslator->add("IData", "Error", "Fehler");
    m_poTranslator->add("IData", "Not Available", "Nicht verfuegbar");
    m_poTranslator->add("IData", "red", "rot");
    m_poTranslator->add("IData", "darkGray", "dunkelgrau");
    QCoreApplication::installTranslator(m_poTranslator.get());

    ProbeEditor editor(nullptr, nullptr);
    Script::DItem item(QStringLiteral("Job.T.Value"), QStringLiteral("IDataBasicInt"),
                       Script::DItem::IoOutput);
    QLabel label;
    item.setErrorState(true);
    QVERIFY(!editor.setupAndShowErrorLabel(label, item));
    QCOMPARE(label.text(), QStringLiteral("<p style=\"red\">Fehler<p>"));
    item.setErrorState(false);
    item.setInitialized(true);
    QVERIFY(!editor.setupAndShowErrorLabel(label, item));
    QCOMPARE(label.text(), QStringLiteral("<p style=\"darkGray\">Nicht verfuegbar<p>"));
}

void TestBaseEditor::labelTextColour()
{
    QLabel label;
    QPalette start = label.palette();
    start.setColor(QPalette::WindowText, Qt::blue);
    start.setColor(QPalette::Disabled, QPalette::WindowText, Qt::darkBlue);
    label.setPalette(start);

    BaseEditor::changeLabelTextcolor(label, QColor(Qt::green));
    const QPalette palette = label.palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (QPalette::ColorRole role :
             {QPalette::Text, QPalette::HighlightedText, QPalette::Link, QPalette::LinkVisited}) {
            QCOMPARE(palette.brush(group, role).color(), QColor(Qt::green));
            QCOMPARE(palette.brush(group, role).style(), Qt::SolidPattern);
        }
    }
    QCOMPARE(palette.color(QPalette::Active, QPalette::WindowText), QColor(Qt::blue));
    QCOMPARE(palette.color(QPalette::Inactive, QPalette::WindowText), QColor(Qt::blue));
    QCOMPARE(palette.color(QPalette::Disabled, QPalette::WindowText), QColor(Qt::darkBlue));
    // Other roles are left too.
    QCOMPARE(palette.color(QPalette::Window), start.color(QPalette::Window));
    QCOMPARE(palette.color(QPalette::Highlight), start.color(QPalette::Highlight));
}

void TestBaseEditor::styleSheetFromResource()
{
    QFile file(QStringLiteral(":/resources/WStyleSheet.qss"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(!bytes.isEmpty());
    const QString sheet = BaseEditor::commonStylesheet();
    QVERIFY(!sheet.isEmpty());
    QCOMPARE(sheet, QString::fromLatin1(bytes.constData()));
}

void TestBaseEditor::keyPressLeftToParent()
{
    ProbeEditor editor(nullptr, nullptr);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    press.accept();
    editor.keyPressEvent(&press);
    QVERIFY(!press.isAccepted());

    // Delivered as the application delivers it, the key travels on to the parent.
    KeyCatcher parent;
    auto* child = new ProbeEditor(&parent, nullptr);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(child, &key);
    QCOMPARE(parent.keys, 1);
}

QTEST_MAIN(TestBaseEditor)
#include "tst_baseeditor.moc"
