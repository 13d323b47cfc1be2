// What Weld I/O does with the controller: save, cancel, and what happens while it waits for an answer.
#include "tests/takenaway.h"
#include "tests/weldioform.h"

#include <QComboBox>
#include <QShowEvent>
#include <QTest>

#include <stdexcept>
#include <utility>

class TestWeldioSave : public QObject
{
    Q_OBJECT

private slots:
    void saveOutcome_data();
    void saveOutcome();
    void cancel();
    void allowedWhenItCounts_data();
    void allowedWhenItCounts();
    void pressedMeanwhile();
    void restoredMeanwhile();
    void hostThatThrows();
    void pageTakenAway();
};

void TestWeldioSave::saveOutcome_data()
{
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    const QString log = "WeldioPage::checkSaveResult failed. ";
    const QString refused = "2|Save failed. Please check the parameter configuration.";
    const QString silent = "2|Save failed. No response from controller.";
    const auto result = [&log](int code) { return log + "|set_weld_io_config| Result:|" + QString::number(code); };
    QTest::newRow("done") << FakeHost::answer(kSave, 0) << "0|Saved successfully" << QString();
    QTest::newRow("fraction") << FakeHost::answer(kSave, 0.9) << "0|Saved successfully" << QString();
    QTest::newRow("number") << FakeHost::answer(kSave, -7.9) << refused << result(-7);
    QTest::newRow("text") << FakeHost::answer(kSave, "12") << refused << result(12);
    QTest::newRow("boolean") << FakeHost::answer(kSave, true) << refused << result(1);
    QTest::newRow("empty") << QJsonArray() << silent << log + "empty response for |set_weld_io_config";
    QTest::newRow("another's") << FakeHost::answer("set_weld_setting_config", 0) << silent
                               << log + "not found |set_weld_io_config| Result";
}

void TestWeldioSave::saveOutcome()
{
    Shown shown;
    QFETCH(QJsonArray, answer);
    shown.host.answers[kSave] = answer;
    shown.combo("power", "port")->setCurrentText("AO9");
    const QStringList calls = shown.asked([&] { shown.save(); });
    QTEST(shown.host.told().join('/'), "message");
    QTEST(shown.host.logs.isEmpty() ? QString() : shown.host.logs.last().items.join('|'), "log");
    QCOMPARE(shown.host.sent(), QStringList{kSave});
    QCOMPARE(shown.host.commands[0].second.toObject().value("power_port"), QJsonValue("AO9"));
    QCOMPARE(shown.host.senders[0], &shown.page);
    // Accepted: what the controller holds is shown, and what may be edited is asked anew. Otherwise the edits stay.
    const bool isSaved = shown.host.lastMessage().startsWith('0');
    QCOMPARE(shown.row("power"), isSaved ? QString("AO||(1)") : QString("AO|AO9|(1)"));
    const QStringList after = calls.mid(calls.indexOf("command") + 1);
    QCOMPARE(after.count("read") + after.count("level"), isSaved ? 2 : 0);
    QCOMPARE(after.first(), QString("message"));
}

void TestWeldioSave::cancel()
{
    Shown shown({{"power_enabled", true}, {"power_port", "AO4"}});
    const QJsonObject before = shown.saved();
    shown.form.press("pushButton_power_enabled");
    shown.combo("power", "type")->setCurrentIndex(1);
    QVERIFY(!shown.form.isEnabled("comboBox_power_type"));
    shown.form.press("pushButton_Cancel");
    QCOMPARE(shown.saved(), before);
    QVERIFY(shown.form.isEnabled("comboBox_power_type"));
    QCOMPARE(shown.host.told(), QStringList{"0|Cancel successful"});
    // It says so whatever it finds, and the page may lock.
    shown.host.nodes.clear();
    shown.host.level = 2;
    shown.form.press("pushButton_Cancel");
    QVERIFY(shown.saved() == before && !shown.page.isEnabled());
    QCOMPARE(shown.host.told().size(), 2);
    QVERIFY(shown.host.commands.isEmpty());
}

void TestWeldioSave::allowedWhenItCounts_data()
{
    QTest::addColumn<QString>("when");
    QTest::addColumn<bool>("locksThePage");
    QTest::newRow("level fell") << "level" << true;
    QTest::newRow("welding was switched on") << "weld" << false;
    QTest::newRow("level falls while the rules ask") << "level, registers" << true;
    QTest::newRow("welding is switched on while the rules ask") << "weld, registers" << false;
    QTest::newRow("disabled by the host") << "disabled" << true;
    QTest::newRow("shown at a low level that rose since") << "shown" << true;
}

void TestWeldioSave::allowedWhenItCounts()
{
    QFETCH(QString, when);
    // With a port missing: this message comes before every rule, and alone.
    Shown shown(
        {{"power_type", 2}, {"power_port", "FloatOut"}, {"gas_protect_port", when.contains("registers") ? "DO2" : ""}});
    const auto change = [&] {
        shown.host.level = when.startsWith("level") ? 2 : 3;
        shown.weld(when.startsWith("weld"));
    };
    if (when == "disabled") {
        shown.page.setEnabled(false);
    } else if (when == "shown") {
        shown.page.hide();
        shown.host.level = 2;
        shown.page.show();
    }
    shown.host.onCall = [&](const QString& call) {
        if (call == "registers") {
            change();
        }
    };
    if (!when.contains("registers")) {
        change();
    }
    shown.combo("power", "port")->setCurrentText("");
    shown.combo("power", "port")->setCurrentText("FloatOut");
    QVERIFY(!shown.page.saveWeldIoConfig());
    QCOMPARE(shown.host.told(), QStringList{kNotNow});
    QVERIFY(shown.host.commands.isEmpty());
    QTEST(!shown.page.isEnabled(), "locksThePage");
    QVERIFY(!shown.form.isEnabled("pushButton_Save"));
    QCOMPARE(shown.row("power"), QString("REG|FloatOut|1"));
}

void TestWeldioSave::pressedMeanwhile()
{
    // The host spins the event loop in every call, and the operator presses, turns the page away and back, and edits.
    Shown shown({{"power_type", 2}, {"power_port", "FloatOut"}});
    bool isTyped = false;
    shown.host.onCall = [&](const QString& call) {
        shown.save();
        shown.form.press("pushButton_Cancel");
        if (call == "command") {
            shown.page.hide();
            shown.page.show();
        }
        if (call == "registers" && !isTyped) {
            isTyped = true;
            shown.combo("laser_enable", "port")->setCurrentText("DO5");
            shown.combo("duty_cycle", "type")->setCurrentIndex(1);
        }
    };
    shown.host.answers[kSave] = FakeHost::answer(kSave, 1);
    shown.save();
    shown.host.onCall = nullptr;
    QCOMPARE(shown.host.sent(), QStringList{kSave});
    QCOMPARE(shown.host.told().size(), 1);
    QVERIFY2(!shown.host.reads.contains(kNode), "a show meanwhile reloads nothing");
    // What was judged is what was sent; what was edited since is still there, with the ports of its new type.
    QCOMPARE(shown.host.commands[0].second.toObject().value("laser_enable_port"), QJsonValue("DO1"));
    QCOMPARE(shown.host.commands[0].second.toObject().value("duty_cycle_type"), QJsonValue(0));
    QCOMPARE(shown.row("laser_enable"), QString("DO|DO5|(1)"));
    QCOMPARE(shown.row("duty_cycle"), QString("GO||(1)"));
    QCOMPARE(shown.combo("duty_cycle", "port")->itemText(30), QString("GO30"));
}

void TestWeldioSave::restoredMeanwhile()
{
    // While a type change asks the host the window is restored, which keeps the edits; nothing is asked twice for it.
    Shown shown;
    shown.combo("laser_enable", "port")->setCurrentText("DO9");
    bool isShown = false;
    const auto once = [&](const QString& call, const std::function<void()>& action) {
        shown.host.onCall = [&isShown, call, action](const QString& current) {
            if (current == call && !std::exchange(isShown, true)) {
                action();
            }
        };
        isShown = false;
    };
    once("io", [&] { restore(&shown.page); });
    shown.combo("power", "type")->setCurrentIndex(1);
    QVERIFY(isShown);
    QCOMPARE(shown.row("laser_enable"), QString("DO|DO9|(1)"));
    QCOMPARE(shown.row("power"), QString("GO||(1)"));
    // A real show while a restored window asks for the level reads all the same.
    once("level", [&] {
        shown.page.hide();
        shown.page.show();
    });
    restore(&shown.page);
    QCOMPARE(shown.row("laser_enable"), QString("DO|DO1|(1)"));
}

void TestWeldioSave::hostThatThrows()
{
    // Out of a save, in which a type was changed and the page shown: both are caught up with by the next business.
    Shown shown;
    shown.host.onCall = [&](const QString& call) {
        if (call == "command") {
            shown.combo("duty_cycle", "type")->setCurrentIndex(1);
            shown.host.level = 2;
            restore(&shown.page);
            throw std::runtime_error("line broken");
        }
    };
    QVERIFY_EXCEPTION_THROWN(shown.page.saveWeldIoConfig(), std::runtime_error);
    shown.host.onCall = nullptr;
    shown.combo("power", "type")->setCurrentIndex(1);
    QVERIFY(!shown.page.isEnabled());
    QCOMPARE(shown.combo("duty_cycle", "port")->itemText(30), QString("GO30"));
    // Out of a show: nobody knows what may be edited.
    shown.host.level = 3;
    shown.page.applyIoPageOperateStatus();
    shown.host.onCall = [](const QString&) { throw std::runtime_error("line broken"); };
    QShowEvent show;
    QVERIFY_EXCEPTION_THROWN(QCoreApplication::sendEvent(&shown.page, &show), std::runtime_error);
    shown.host.onCall = nullptr;
    QVERIFY(!shown.page.isEnabled());
}

void TestWeldioSave::pageTakenAway()
{
    const QPair<QString, int> rows[] = {
        {"save", 12},   // level, registers, level, command, message, node, five lists, level
        {"refused", 5}, // ..., message
        {"rule", 3},    // level, registers, message
        {"level", 2},   // level, message
        {"cancel", 9},  // node, lists, level, message
        {"show", 8},    // registers, node, lists, level
        {"type", 1},    // list
    };
    for (const auto& row : rows) {
        const QString& what = row.first;
        FakeHost host;
        equip(&host);
        host.nodes[kNode] = mapping({{"power_type", 2}, {"power_port", what == "rule" ? "Gone" : "FloatOut"}});
        host.answers[kSave] = FakeHost::answer(kSave, what == "refused" ? 1 : 0);
        const QJsonValue registers = host.registers;
        const auto make = [&] {
            host.level = 3;
            host.registers = registers.toArray() + QJsonValue(registerOf("Gone", "float", "rw", 1));
            auto* page = new WeldioPage(nullptr, nullptr);
            page->show();
            host.registers = registers;
            host.level = what == "level" ? 2 : 3;
            return page;
        };
        const auto act = [&what](WeldioPage* page) {
            QShowEvent show;
            if (what == "show") {
                QCoreApplication::sendEvent(page, &show);
            } else if (what == "cancel") {
                emit page->findChild<QAbstractButton*>("pushButton_Cancel")->clicked();
            } else if (what == "type") {
                page->findChild<QComboBox*>("comboBox_duty_cycle_type")->setCurrentIndex(1);
            } else {
                page->saveWeldIoConfig();
            }
        };
        QVERIFY2(takeAwayInEveryCall<WeldioPage>(host, make, act) == row.second, qPrintable(what));
    }
}

QTEST_MAIN(TestWeldioSave)
#include "tst_weldiosave.moc"
