// What Char. Curve does with the controller: compute, save, cancel, and what happens while it waits for an answer.
#include "tests/curveform.h"
#include "tests/takenaway.h"

#include <QTest>

#include <stdexcept>

class TestCurveSave : public QObject
{
    Q_OBJECT

private slots:
    void saveOutcome_data();
    void saveOutcome();
    void validation();
    void typedValue();
    void cancel();
    void allowedWhenItCounts_data();
    void allowedWhenItCounts();
    void pressedMeanwhile_data();
    void pressedMeanwhile();
    void hostThatThrows();
    void pageTakenAway_data();
    void pageTakenAway();
};

void TestCurveSave::saveOutcome_data()
{
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    const QString log = "CharacteristicsCurvePage::checkSaveResult failed. ";
    QTest::newRow("done") << FakeHost::answer(kPower.command, 0) << "0|Saved successfully"
                          << "";
    QTest::newRow("refused") << FakeHost::answer(kPower.command, 7)
                             << "2|Save failed. Please check the parameter configuration."
                             << log + "|set_weld_curve_power_config| Result:|7";
    QTest::newRow("silent") << QJsonArray() << "" << log + "not found |set_weld_curve_power_config| Result";
}

void TestCurveSave::saveOutcome()
{
    QFETCH(QJsonArray, answer);
    Shown shown;
    shown.host.answers[kPower.command] = answer;
    shown.value(1)->setValue(1234);
    const QStringList calls = shown.called([&] { shown.press(kPower.save); });
    QTEST(shown.host.told().join('/'), "message");
    QTEST(shown.host.logs.isEmpty() ? QString() : shown.host.logs.last().items.join('|'), "log");
    QCOMPARE(calls.mid(0, 4), QStringList({"level", kCompute, "level", kPower.command}));
    QVERIFY(!calls.contains(kNode));
    QCOMPARE(shown.value(1)->value(), 1234);
}

/// Nothing is sent, drawn or said besides.
void TestCurveSave::validation()
{
    Shown shown(object(R"({"power_nodes_data":[]})"));
    for (const char* button : {kPower.compute, kPower.save}) {
        shown.host.forget();
        shown.press(button);
        QCOMPARE(shown.host.told(), QStringList{"1|Validation failed,The table requires at least two rows of data!"});
        QVERIFY(shown.host.commands.isEmpty() && !shown.chart()->hasLine());
    }
}

/// What was typed counts, also before the field is left.
void TestCurveSave::typedValue()
{
    Shown shown;
    shown.value(1)->setKeyboardTracking(false);
    shown.value(1)->selectAll();
    QTest::keyClicks(shown.value(1), "77");
    emit shown.form.find<QAbstractButton>(kPower.compute)->clicked();
    QCOMPARE(shown.host.commands[0].second.toObject().value("power_nodes_data").toArray()[1].toArray()[1],
             QJsonValue(77));
}

void TestCurveSave::cancel()
{
    Shown shown;
    const QString before = shown.nodes();
    shown.counts()->setCurrentIndex(4);
    QCOMPARE(shown.called([&] { shown.press(kPower.cancel); }), QStringList({kNode, "message"}));
    QCOMPARE(shown.nodes(), before);
    QCOMPARE(shown.header(), QString("AO_power"));
    // All curves are reloaded, and only this one's line is computed again; it says so whatever comes of it.
    shown.open(kCurves[1]);
    shown.press(kCurves[1].compute);
    shown.open(kPower);
    shown.press(kPower.compute);
    shown.host.nodes[kNode] = object(R"({"laser_power_node":2,"power_nodes_data":[[2,2],[1,1]],"laser_feed_node":3})");
    shown.host.level = 2;
    shown.host.forget();
    QCOMPARE(shown.called([&] { shown.press(kPower.cancel); }), QStringList({kNode, "message", "message"}));
    QCOMPARE(shown.host.told(),
             QStringList({"1|The data in line 2 must be greater than the data in row 1!", "0|Cancel successful"}));
    QCOMPARE(shown.table(kCurves[1])->rowCount(), 3);
}

void TestCurveSave::allowedWhenItCounts_data()
{
    QTest::addColumn<QString>("when");
    QTest::addColumn<QStringList>("sent");
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("level fell") << "level" << QStringList() << true;
    QTest::newRow("welding was switched on") << "weld" << QStringList() << false;
    QTest::newRow("disabled by the host") << "disabled" << QStringList() << true;
    QTest::newRow("level falls while it is computed") << "level, command" << QStringList{kCompute} << true;
    QTest::newRow("welding is switched on meanwhile") << "weld, command" << QStringList{kCompute} << false;
    QTest::newRow("disabled meanwhile") << "disabled, command" << QStringList{kCompute} << true;
    QTest::newRow("disabled while the level is asked") << "disabled, level" << QStringList() << true;
}

/// A locked page says nothing, not even that its nodes break a rule, and shows that it is locked.
void TestCurveSave::allowedWhenItCounts()
{
    QFETCH(QString, when);
    QFETCH(bool, isLocked);
    for (const char* button : {kPower.save, kPower.compute}) {
        const bool isAtOnce = !when.contains(',');
        Shown shown(isAtOnce ? object(R"({"power_nodes_data":[]})") : storedNode());
        const auto change = [&] {
            shown.host.level = when.startsWith("level") ? 2 : 3;
            shown.weld(when.startsWith("weld"));
            shown.page.setEnabled(!when.startsWith("disabled"));
        };
        if (isAtOnce) {
            change();
        }
        shown.host.onCall = [&](const QString& call) {
            if (when.endsWith(", " + call)) {
                change();
            }
        };
        emit shown.form.find<QAbstractButton>(button)->clicked();
        shown.host.onCall = nullptr;
        QTEST(shown.host.sent(), "sent");
        QVERIFY(shown.host.messages.isEmpty());
        if (button == kPower.save) {
            QCOMPARE(shown.page.isEnabled(), !isLocked);
            QVERIFY(!shown.form.isEnabled(kPower.save));
        }
    }
}

void TestCurveSave::pressedMeanwhile_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("isReread");
    QTest::newRow("accepted") << 0 << true;
    QTest::newRow("refused: what was edited stays, though the page was shown") << 1 << false;
}

void TestCurveSave::pressedMeanwhile()
{
    QFETCH(int, code);
    // The host spins the event loop in every call, and the operator presses; and, while it is saved, edits and turns
    // the page away and back.
    Shown shown;
    shown.host.onCall = [&](const QString& call) {
        for (const Curve& curve : kCurves) {
            for (const char* button : {curve.compute, curve.save, curve.cancel}) {
                emit shown.form.find<QAbstractButton>(button)->clicked();
            }
        }
        if (call == "command") {
            shown.value(1)->setValue(2345); // of what is judged nothing is sent anew
        }
        if (call == "command" && shown.host.commands.size() == 2) {
            shown.page.hide();
            shown.page.show();
        }
    };
    shown.host.answers[kPower.command] = FakeHost::answer(kPower.command, code);
    shown.press(kPower.save);
    shown.host.onCall = nullptr;
    // The last one is due to the shows.
    QCOMPARE(shown.host.sent().mid(0, 2), QStringList({kCompute, kPower.command}));
    QCOMPARE(words(shown.host.commands[0].second), words(shown.host.commands[1].second));
    QCOMPARE(shown.host.commands[0].second.toObject().value("laser_power_node"), QJsonValue(3));
    QTEST(shown.host.reads.contains(kNode), "isReread");
    QCOMPARE(shown.host.messages.first().level, code * 2);
}

void TestCurveSave::hostThatThrows()
{
    Shown shown;
    shown.host.onCall = [](const QString&) { throw std::runtime_error("line broken"); };
    QVERIFY_EXCEPTION_THROWN(shown.page.computeDrawPowerChart(), std::runtime_error);
    QVERIFY(shown.page.isEnabled() && !shown.chart()->hasLine());
    QShowEvent show;
    QVERIFY_EXCEPTION_THROWN(QCoreApplication::sendEvent(&shown.page, &show), std::runtime_error);
    shown.host.onCall = nullptr;
    QVERIFY(!shown.page.isEnabled());
    shown.page.computeDrawPowerChart(); // whatever the level
    QVERIFY(shown.chart()->hasLine());
}

void TestCurveSave::pageTakenAway_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("calls");
    QTest::newRow("save") << "save" << 5;       // level, compute, level, save, message
    QTest::newRow("compute") << "compute" << 2; // level, compute
    QTest::newRow("locked") << "locked" << 2;   // level, mapping
    QTest::newRow("rule") << "rule" << 2;       // level, message
    QTest::newRow("cancel") << "cancel" << 3;   // node, compute, message
    QTest::newRow("show") << "show" << 6;       // node, mapping, two computes, level, mapping
    QTest::newRow("headers") << "headers" << 1; // mapping
    QTest::newRow("tab") << "tab" << 1;         // mapping
}

void TestCurveSave::pageTakenAway()
{
    QFETCH(QString, what);
    FakeHost host;
    host.nodes[kNode] = storedNode();
    host.nodes[kMapping] = mapping();
    WeldSettingPage setting(nullptr);
    const auto make = [&] {
        setting.findChild<EnableButton*>("pushButton_main_enable")->setIsEnabled(what == "locked", false);
        auto* page = new CharacteristicsCurvePage(&setting, nullptr);
        page->show();
        if (what == "cancel" || what == "show") {
            page->computeDrawPowerChart();
            page->computeDrawDutycycleChart();
        }
        if (what == "rule") {
            page->findChild<QComboBox*>(kPower.counts)->setCurrentIndex(5);
        }
        return page;
    };
    const auto act = [&what](CharacteristicsCurvePage* page) {
        QShowEvent show;
        if (what == "show") {
            QCoreApplication::sendEvent(page, &show);
        } else if (what == "headers") {
            page->initTableHeaderText();
        } else if (what == "tab") {
            page->setCurveTabEditable(0, true);
        } else {
            const char* button = what == "cancel" ? kPower.cancel : what == "compute" ? kPower.compute : kPower.save;
            emit page->findChild<QAbstractButton*>(button)->clicked();
        }
    };
    QTEST(takeAwayInEveryCall<CharacteristicsCurvePage>(host, make, act), "calls");
}

QTEST_MAIN(TestCurveSave)
#include "tst_curvesave.moc"
