#include "propertymetatype.h"
#include "qteditorfactory.h"
#include "qtpropertymanager.h"

#include "testsupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

#include <memory>

namespace {

// A manager and a factory of one kind, paired, with one property.
struct Pairing
{
    QtAbstractPropertyManager* manager = nullptr;
    QtAbstractEditorFactoryBase* factory = nullptr;
    QtProperty* property = nullptr;
};

template<class Manager, class Factory>
Pairing pair()
{
    auto* manager = new Manager;
    auto* factory = new Factory;
    factory->addPropertyManager(manager);
    return {manager, factory, manager->addProperty(QStringLiteral("property"))};
}

Pairing pairOfKind(const QString& kind)
{
    if (kind == QLatin1String("slider"))
        return pair<QtIntPropertyManager, QtSliderFactory>();
    if (kind == QLatin1String("double spin box"))
        return pair<QtDoublePropertyManager, QtDoubleSpinBoxFactory>();
    if (kind == QLatin1String("check box"))
        return pair<QtBoolPropertyManager, QtCheckBoxFactory>();
    if (kind == QLatin1String("combo box"))
        return pair<QtEnumPropertyManager, QtEnumEditorFactory>();
    return pair<QtStringPropertyManager, QtLineEditFactory>();
}

QIcon filledIcon(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return QIcon(pixmap);
}

// Runs the deletions that deleteLater() asked for, as the event loop would.
void runDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestFactories : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        qRegisterMetaType<QtProperty*>();
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void sliderEditsTheValue()
    {
        QtIntPropertyManager manager;
        QtSliderFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        manager.setRange(property, 0, 100);
        manager.setValue(property, 10);
        manager.setSingleStep(property, 5);
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* slider = qobject_cast<QSlider*>(editor.get());
        QVERIFY(slider);
        QCOMPARE(slider->orientation(), Qt::Horizontal);
        QCOMPARE(slider->minimum(), 0);
        QCOMPARE(slider->maximum(), 100);
        QCOMPARE(slider->singleStep(), 5);
        QCOMPARE(slider->value(), 10);
        QVERIFY(slider->isEnabled());

        QSignalSpy spy(&manager, &QtIntPropertyManager::valueChanged);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(manager.value(property), 15);
        QCOMPARE(spy.count(), 1);
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(manager.value(property), 100);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(slider->value(), 100);
    }

    void sliderFollowsTheManager()
    {
        QtIntPropertyManager manager;
        QtSliderFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        manager.setRange(property, 0, 100);
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* slider = qobject_cast<QSlider*>(editor.get());
        QVERIFY(slider);
        QSignalSpy managerSpy(&manager, &QtIntPropertyManager::valueChanged);
        QSignalSpy sliderSpy(slider, &QSlider::valueChanged);
        manager.setValue(property, 70);
        QCOMPARE(slider->value(), 70);
        manager.setRange(property, 0, 50);
        QCOMPARE(slider->maximum(), 50);
        QCOMPARE(slider->value(), 50);
        QCOMPARE(manager.value(property), 50);
        // One signal per change of the manager: nothing came back from the slider.
        QCOMPARE(managerSpy.count(), 2);
        QCOMPARE(sliderSpy.count(), 0);
        manager.setSingleStep(property, 7);
        QCOMPARE(slider->singleStep(), 7);
        manager.setReadOnly(property, true);
        QVERIFY(!slider->isEnabled());
        manager.setReadOnly(property, false);
        QVERIFY(slider->isEnabled());
    }

    void doubleSpinBoxEditsTheValue()
    {
        QtDoublePropertyManager manager;
        QtDoubleSpinBoxFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        manager.setRange(property, -10.0, 10.0);
        manager.setSingleStep(property, 0.5);
        manager.setDecimals(property, 3);
        manager.setValue(property, 1.25);
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* spinBox = qobject_cast<QDoubleSpinBox*>(editor.get());
        QVERIFY(spinBox);
        QCOMPARE(spinBox->minimum(), -10.0);
        QCOMPARE(spinBox->maximum(), 10.0);
        QCOMPARE(spinBox->singleStep(), 0.5);
        QCOMPARE(spinBox->decimals(), 3);
        QCOMPARE(spinBox->value(), 1.25);
        QVERIFY(!spinBox->isReadOnly());

        QSignalSpy spy(&manager, &QtDoublePropertyManager::valueChanged);
        QTest::keyClick(spinBox, Qt::Key_Up);
        QCOMPARE(manager.value(property), 1.75);
        QCOMPARE(spy.count(), 1);
        QTest::keyClick(spinBox, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(spinBox, QStringLiteral("-2.125"));
        QCOMPARE(manager.value(property), -2.125);
        QCOMPARE(property->valueText(), QStringLiteral("-2.125"));
    }

    void doubleSpinBoxFollowsTheManager()
    {
        QtDoublePropertyManager manager;
        QtDoubleSpinBoxFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* spinBox = qobject_cast<QDoubleSpinBox*>(editor.get());
        QVERIFY(spinBox);
        QSignalSpy managerSpy(&manager, &QtDoublePropertyManager::valueChanged);
        manager.setDecimals(property, 4);
        QCOMPARE(spinBox->decimals(), 4);
        manager.setValue(property, 0.1234);
        QCOMPARE(spinBox->value(), 0.1234);
        manager.setRange(property, 0.5, 2.0);
        QCOMPARE(spinBox->minimum(), 0.5);
        QCOMPARE(spinBox->value(), 0.5);
        QCOMPARE(managerSpy.count(), 2);
        manager.setDecimals(property, 0);
        manager.setDecimals(property, 2);
        // Rounding in the editor while it showed no decimals must not stick.
        QCOMPARE(spinBox->minimum(), 0.5);
        QCOMPARE(spinBox->value(), 0.5);
        QCOMPARE(manager.value(property), 0.5);
        QCOMPARE(managerSpy.count(), 2);
        manager.setSingleStep(property, 0.25);
        QCOMPARE(spinBox->singleStep(), 0.25);
        manager.setReadOnly(property, true);
        QVERIFY(spinBox->isReadOnly());
        QTest::keyClick(spinBox, Qt::Key_Up);
        QCOMPARE(manager.value(property), 0.5);
    }

    void checkBoxEditsTheValue()
    {
        QtBoolPropertyManager manager;
        QtCheckBoxFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        QWidget container;
        container.resize(200, 30);
        QWidget* editor = factory.createEditor(property, &container);
        QVERIFY(editor);
        editor->setGeometry(0, 0, 200, 30);
        container.show();
        QVERIFY(QTest::qWaitForWindowExposed(&container));
        auto* checkBox = editor->findChild<QCheckBox*>();
        QVERIFY(checkBox);
        QCOMPARE(checkBox->isChecked(), false);
        QCOMPARE(checkBox->text(), QStringLiteral("False"));

        QSignalSpy spy(&manager, &QtBoolPropertyManager::valueChanged);
        QTest::mouseClick(checkBox, Qt::LeftButton);
        QCOMPARE(manager.value(property), true);
        QCOMPARE(checkBox->text(), QStringLiteral("True"));
        QCOMPARE(spy.count(), 1);
        // A click on the row beside the check box toggles too.
        QTest::mouseClick(editor, Qt::LeftButton, Qt::NoModifier, QPoint(190, 15));
        QCOMPARE(manager.value(property), false);
        QCOMPARE(spy.count(), 2);
        QTest::keyClick(checkBox, Qt::Key_Space);
        QCOMPARE(manager.value(property), true);
        QCOMPARE(spy.count(), 3);
    }

    void checkBoxFollowsTheManager()
    {
        QtBoolPropertyManager manager;
        QtCheckBoxFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        QVERIFY(editor);
        auto* checkBox = editor->findChild<QCheckBox*>();
        QVERIFY(checkBox);
        QSignalSpy spy(&manager, &QtBoolPropertyManager::valueChanged);
        manager.setValue(property, true);
        QVERIFY(checkBox->isChecked());
        QCOMPARE(checkBox->text(), QStringLiteral("True"));
        QCOMPARE(spy.count(), 1);
        manager.setTextVisible(property, false);
        QVERIFY(checkBox->text().isEmpty());
        manager.setValue(property, false);
        QVERIFY(!checkBox->isChecked());
        QVERIFY(checkBox->text().isEmpty());
        QCOMPARE(spy.count(), 2);
    }

    void comboBoxEditsTheValue()
    {
        QtEnumPropertyManager manager;
        QtEnumEditorFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        const QIcon blue = filledIcon(Qt::blue);
        manager.setEnumNames(property, {"Red", "Green", "Blue"});
        manager.setEnumIcons(property, {{2, blue}});
        manager.setValue(property, 1);
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* comboBox = qobject_cast<QComboBox*>(editor.get());
        QVERIFY(comboBox);
        QCOMPARE(comboBox->count(), 3);
        QCOMPARE(comboBox->itemText(0), QStringLiteral("Red"));
        QCOMPARE(comboBox->itemText(2), QStringLiteral("Blue"));
        QCOMPARE(comboBox->itemIcon(2).cacheKey(), blue.cacheKey());
        QVERIFY(comboBox->itemIcon(0).isNull());
        QCOMPARE(comboBox->currentIndex(), 1);

        QSignalSpy spy(&manager, &QtEnumPropertyManager::valueChanged);
        QTest::keyClick(comboBox, Qt::Key_Down);
        QCOMPARE(manager.value(property), 2);
        QCOMPARE(spy.count(), 1);
        QTest::keyClick(comboBox, Qt::Key_Home);
        QCOMPARE(manager.value(property), 0);
        QCOMPARE(spy.count(), 2);
    }

    void comboBoxFollowsTheManager()
    {
        qRegisterMetaType<QMap<int, QIcon>>();
        QtEnumPropertyManager manager;
        QtEnumEditorFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* comboBox = qobject_cast<QComboBox*>(editor.get());
        QVERIFY(comboBox);
        QCOMPARE(comboBox->count(), 0);
        QSignalSpy spy(&manager, &QtEnumPropertyManager::valueChanged);
        manager.setEnumNames(property, {"Low", "High"});
        QCOMPARE(comboBox->count(), 2);
        QCOMPARE(comboBox->currentIndex(), 0);
        manager.setValue(property, 1);
        QCOMPARE(comboBox->currentIndex(), 1);
        const QIcon red = filledIcon(Qt::red);
        manager.setEnumIcons(property, {{0, red}});
        QCOMPARE(comboBox->itemIcon(0).cacheKey(), red.cacheKey());
        QCOMPARE(comboBox->currentIndex(), 1);
        manager.setEnumNames(property, {"A", "B", "C"});
        QCOMPARE(comboBox->count(), 3);
        QCOMPARE(comboBox->itemText(2), QStringLiteral("C"));
        QCOMPARE(comboBox->itemIcon(0).cacheKey(), red.cacheKey());
        QCOMPARE(comboBox->currentIndex(), 0);
        // From -1 to 0, 1, then back to 0: each once, none echoed back by the combo box.
        QCOMPARE(spy.count(), 3);
    }

    void lineEditEditsTheValue()
    {
        QtStringPropertyManager manager;
        QtLineEditFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        manager.setRegExp(property, QRegExp(QStringLiteral("[0-9]{0,4}")));
        manager.setValue(property, QStringLiteral("1"));
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* lineEdit = qobject_cast<QLineEdit*>(editor.get());
        QVERIFY(lineEdit);
        QCOMPARE(lineEdit->text(), QStringLiteral("1"));
        QVERIFY(lineEdit->validator());

        QSignalSpy spy(&manager, &QtStringPropertyManager::valueChanged);
        QTest::keyClicks(lineEdit, QStringLiteral("2x3"));
        QCOMPARE(lineEdit->text(), QStringLiteral("123"));
        QCOMPARE(manager.value(property), QStringLiteral("123"));
        QCOMPARE(spy.count(), 2);
        // Typing in the middle keeps the cursor where the user put it.
        QTest::keyClick(lineEdit, Qt::Key_Home);
        QTest::keyClick(lineEdit, Qt::Key_Right);
        QTest::keyClick(lineEdit, Qt::Key_9);
        QCOMPARE(manager.value(property), QStringLiteral("1923"));
        QCOMPARE(lineEdit->cursorPosition(), 2);
    }

    void lineEditFollowsTheManager()
    {
        QtStringPropertyManager manager;
        QtLineEditFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* lineEdit = qobject_cast<QLineEdit*>(editor.get());
        QVERIFY(lineEdit);
        manager.setValue(property, QStringLiteral("hello"));
        QCOMPARE(lineEdit->text(), QStringLiteral("hello"));
        manager.setEchoMode(property, QLineEdit::Password);
        QCOMPARE(lineEdit->echoMode(), QLineEdit::Password);
        manager.setRegExp(property, QRegExp(QStringLiteral("[a-z]*")));
        QTest::keyClick(lineEdit, Qt::Key_End);
        QTest::keyClicks(lineEdit, QStringLiteral("A!b"));
        QCOMPARE(manager.value(property), QStringLiteral("hellob"));
        manager.setReadOnly(property, true);
        QVERIFY(lineEdit->isReadOnly());
        QTest::keyClicks(lineEdit, QStringLiteral("c"));
        QCOMPARE(manager.value(property), QStringLiteral("hellob"));
    }

    void twoEditorsStayInStep()
    {
        QtIntPropertyManager manager;
        QtSliderFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        manager.setRange(property, 0, 10);
        std::unique_ptr<QWidget> first(factory.createEditor(property, nullptr));
        std::unique_ptr<QWidget> second(factory.createEditor(property, nullptr));
        QTest::keyClick(first.get(), Qt::Key_End);
        QCOMPARE(manager.value(property), 10);
        QCOMPARE(qobject_cast<QSlider*>(second.get())->value(), 10);
    }

    void foreignPropertyGetsNoEditor()
    {
        QtIntPropertyManager manager;
        QtIntPropertyManager unpaired;
        QtSliderFactory factory;
        factory.addPropertyManager(&manager);
        QVERIFY(!factory.createEditor(unpaired.addProperty(), nullptr));
        QVERIFY(!factory.createEditor(nullptr, nullptr));
    }

    void removedManagerIsNoLongerFollowed()
    {
        QtIntPropertyManager manager;
        QtSliderFactory factory;
        factory.addPropertyManager(&manager);
        QtProperty* property = manager.addProperty();
        manager.setRange(property, 0, 10);
        std::unique_ptr<QWidget> editor(factory.createEditor(property, nullptr));
        auto* slider = qobject_cast<QSlider*>(editor.get());
        QVERIFY(slider);
        factory.removePropertyManager(&manager);
        QVERIFY(factory.propertyManagers().isEmpty());
        QVERIFY(!factory.createEditor(property, nullptr));
        manager.setValue(property, 4);
        QCOMPARE(slider->value(), 0);
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(manager.value(property), 4);
        // The editor still goes with its property.
        QPointer<QWidget> watched(editor.release());
        delete property;
        runDeferredDeletes();
        QVERIFY(watched.isNull());
    }

    void editorsGoWithTheirProperty_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("slider") << "slider";
        QTest::newRow("double spin box") << "double spin box";
        QTest::newRow("check box") << "check box";
        QTest::newRow("combo box") << "combo box";
        QTest::newRow("line edit") << "line edit";
    }

    void editorsGoWithTheirProperty()
    {
        QFETCH(QString, kind);
        const Pairing pairing = pairOfKind(kind);
        std::unique_ptr<QtAbstractPropertyManager> manager(pairing.manager);
        std::unique_ptr<QtAbstractEditorFactoryBase> factory(pairing.factory);
        QtProperty* other = manager->addProperty();
        QWidget container;
        QPointer<QWidget> first = factory->createEditor(pairing.property, &container);
        QPointer<QWidget> second = factory->createEditor(pairing.property, &container);
        QPointer<QWidget> kept = factory->createEditor(other, &container);
        QVERIFY(first && second && kept);
        delete pairing.property;
        runDeferredDeletes();
        QVERIFY(first.isNull());
        QVERIFY(second.isNull());
        QVERIFY(!kept.isNull());
    }

    void destroyedEditorIsForgotten_data() { editorsGoWithTheirProperty_data(); }

    void destroyedEditorIsForgotten()
    {
        QFETCH(QString, kind);
        const Pairing pairing = pairOfKind(kind);
        std::unique_ptr<QtAbstractPropertyManager> manager(pairing.manager);
        std::unique_ptr<QtAbstractEditorFactoryBase> factory(pairing.factory);
        delete factory->createEditor(pairing.property, nullptr);
        QPointer<QWidget> live = factory->createEditor(pairing.property, nullptr);
        QVERIFY(live);
        // The factory touches only the editor that is still there (the sanitizer build would
        // catch a use of the one that is gone).
        delete pairing.property;
        runDeferredDeletes();
        QVERIFY(live.isNull());
    }

    void teardownInAnyOrder_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("order");
        const QStringList kinds {"slider", "double spin box", "check box", "combo box",
                                 "line edit"};
        const QStringList orders {"manager factory container", "factory manager container",
                                  "container manager factory", "container factory manager",
                                  "manager container factory", "factory container manager"};
        for (const QString& kind : kinds) {
            for (const QString& order : orders)
                QTest::newRow(qPrintable(kind + ": " + order)) << kind << order;
        }
    }

    void teardownInAnyOrder()
    {
        QFETCH(QString, kind);
        QFETCH(QString, order);
        const Pairing pairing = pairOfKind(kind);
        QPointer<QtAbstractPropertyManager> manager(pairing.manager);
        QPointer<QtAbstractEditorFactoryBase> factory(pairing.factory);
        QPointer<QWidget> container(new QWidget);
        QPointer<QWidget> editor = factory->createEditor(pairing.property, container);
        QPointer<QWidget> topLevel = factory->createEditor(pairing.property, nullptr);
        QVERIFY(editor && topLevel);
        container->show();
        for (const QString& step : order.split(QLatin1Char(' '))) {
            if (step == QLatin1String("manager")) {
                delete manager;
                runDeferredDeletes();
                // Without their properties the editors have nothing left to edit.
                QVERIFY(editor.isNull());
                QVERIFY(topLevel.isNull());
            } else if (step == QLatin1String("factory")) {
                delete factory;
                QVERIFY(editor.isNull());
                QVERIFY(topLevel.isNull());
            } else {
                delete container;
                QVERIFY(editor.isNull());
            }
        }
        QVERIFY(manager.isNull() && factory.isNull() && container.isNull() && topLevel.isNull());
    }
};

QTEST_MAIN(TestFactories)

#include "tst_pb_factories.moc"
