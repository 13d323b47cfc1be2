#include "tests/weldioform.h"

#include <QLabel>
#include <QShowEvent>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <limits>

Q_DECLARE_METATYPE(QJsonObject)

class TestWeldioPage : public QObject
{
    Q_OBJECT

private slots:
    void everyMemberHasItsWidget();
    void storedRow();
    void typesAndElements();
    void showing();
    void onePassAsksOnce();
    void rules_data();
    void rules();
    void whatMayBeEdited();
    void fitsItsContent();
};

void TestWeldioPage::everyMemberHasItsWidget()
{
    // Another port in every row, and every type that its kind has in some row; a register in every third.
    Shown shown;
    // The first register that a signal whose first type is this one may have.
    const QMap<QString, QString> registers{
        {"AO", "FloatOut"}, {"DO", "BoolOut"}, {"GO", "IntOut"}, {"AI", "FloatIn"}, {"DI", "BoolIn"}};
    QJsonObject node;
    int number = 0;
    for (const QVector<IoRowTemplate>* rows : {&outputRowTemplates(), &inputRowTemplates()}) {
        for (const IoRowTemplate& signal : *rows) {
            ++number;
            const QStringList types = signal.portKind->typeEntries();
            const int index = number % 3 == 0 ? types.size() - 1 : number % 2 * (types.size() - 2);
            const bool isRegister = types.at(index) == "REG";
            QString port = types.at(index) + QString::number(number);
            if (isRegister) {
                ListComboBox* combo = shown.combo(signal.key, "type");
                combo->setCurrentIndex(index);
                port = shown.combo(signal.key, "port")->itemText(1);
                QCOMPARE(port, registers.value(types.first()));
            }
            const QString key = signal.key;
            node.insert(key + "_type", isRegister ? 2 : index);
            node.insert(key + "_port", port);
            node.insert(key + "_bias", isRegister && port != "BoolIn" ? 1 : 0);
            if (key != "laser_enable" && key != "gas_protect") {
                node.insert(key == "adhesion_detection_en" ? "adhesion_detection_enabled" : key + "_enabled",
                            number % 4 == 0);
            }
        }
    }
    QCOMPARE(node.size(), 94);
    QSignalSpy changes(shown.combo("power", "port"), QOverload<int>::of(&QComboBox::currentIndexChanged));
    shown.page.loadWeldIOConfigFromJson(node);
    QCOMPARE(shown.page.saveWeldIOConfigToJson(), (QJsonObject{{kSave, node}}));
    QVERIFY2(changes.isEmpty(), "loading sets nothing off");

    const auto* outputs = shown.form.find<QTableWidget>("tableWidget_output");
    QVERIFY(outputs->rowCount() == 15 && outputs->item(11, 0)->text() == "12" &&
            outputs->item(11, 0)->flags() == Qt::ItemIsEnabled);
    QCOMPARE(outputs->cellWidget(11, 1)->findChild<QLabel*>("label_adhesion_detection_en_name")->text(),
             QString("Adhesion Detection Enable"));
    QVERIFY(outputs->cellWidget(11, 4)->isAncestorOf(shown.button("adhesion_detection")));
    QVERIFY(outputs->cellWidget(0, 4) == nullptr);
    QCOMPARE(shown.page.translateIoRowName("external_alarm", "x"), QString("Welder Ready"));
    QCOMPARE(shown.page.translateIoRowName("nobody", "Power"), QString("Power"));
}

void TestWeldioPage::storedRow()
{
    const auto both = [](const QJsonValue& type, const char* port, const QJsonValue& bias) {
        return QJsonObject{{"power_type", type},     {"power_port", port},     {"power_bias", bias},
                           {"red_light_type", type}, {"red_light_port", port}, {"red_light_bias", bias}};
    };
    const struct {
        const char* name;
        QJsonObject stored;
        const char* power;    // offers AO, GO and numeric registers
        const char* redLight; // offers DO and boolean registers
    } rows[] = {
        {"missing", {}, "AO||(1)", "DO||(1)"},
        {"second type", both(1, "GO7", 3), "GO|GO7|(1)", "DO||(1)"},
        {"no such type", both(7, "AO7", 0), "AO|AO7|(1)", "DO||(1)"},
        {"negative type", both(-1, "DO7", 0), "AO||(1)", "DO|DO7|(1)"},
        {"no whole number", both(1.5, "AO7", 0.5), "AO|AO7|(1)", "DO||(1)"},
        {"names match exactly", both(0, "do7", 0), "AO||(1)", "DO||(1)"},
        {"first element", both(2, "BoolOut", 0), "REG||(1)", "REG|BoolOut|1"},
        {"other element", both(2, "BoolOut", 2), "REG||(1)", "REG|BoolOut|3"},
        {"negative element, keeps what is shown", both(2, "BoolOut", -1), "REG||(1)", "REG|BoolOut|2"},
        {"beyond the first length of that name", both(2, "BoolOut", 4), "REG||(1)", "REG|BoolOut|4"},
        {"far beyond", both(2, "FloatOut", std::numeric_limits<int>::max()), "REG|FloatOut|2", "REG||(1)"},
        {"last of many", both(2, "Late", 2147483646), "REG||(1)", "REG|Late|2147483647"},
        {"only read, length no number", both(2, "BoolIn", 0), "REG||(1)", "REG||(1)"},
    };
    for (const auto& row : rows) {
        Shown shown(
            {{"red_light_type", 2}, {"red_light_port", "BoolOut"}, {"red_light_bias", 1}, {"power_port", "AO3"}});
        shown.load(row.stored);
        QVERIFY2(shown.row("power") == row.power, row.name);
        QVERIFY2(shown.row("red_light") == row.redLight, row.name);
    }
}

void TestWeldioPage::typesAndElements()
{
    Shown shown({{"red_light_port", "DO7"}, {"red_light_enabled", true}});
    // By hand: a changed type empties the port; a register with elements shows them; another port keeps the element.
    shown.combo("red_light", "type")->setCurrentIndex(1);
    QCOMPARE(shown.row("red_light"), QString("REG||(1)"));
    shown.combo("red_light", "port")->setCurrentText("BoolOut");
    QCOMPARE(shown.row("red_light"), QString("REG|BoolOut|1"));
    QCOMPARE(shown.combo("red_light", "bias")->count(), 4);
    shown.combo("red_light", "bias")->setCurrentIndex(2);
    QCOMPARE(shown.saved().value("red_light_bias"), QJsonValue(2));
    shown.combo("red_light", "port")->setCurrentText("Late");
    QCOMPARE(shown.row("red_light"), QString("REG|Late|3"));
    shown.combo("red_light", "type")->setCurrentIndex(0);
    QCOMPARE(shown.row("red_light"), QString("DO||(1)"));
    QCOMPARE(shown.saved().value("red_light_bias"), QJsonValue(0));
    shown.load({{"light_feedback_type", 2}, {"light_feedback_port", "BoolIn"}, {"light_feedback_bias", 5}});
    QCOMPARE(shown.row("light_feedback"), QString("REG|BoolIn|1"));

    // A register that the controller got meanwhile has its length when its row is loaded.
    QJsonArray registers = shown.host.registers.toArray();
    registers.append(registerOf(" New ", "bool", "wo", 5));
    shown.host.registers = registers;
    shown.host.nodes[kNode] = mapping({{"red_light_type", 2}, {"red_light_port", "New"}, {"red_light_bias", 4}});
    shown.form.press("pushButton_Cancel");
    QCOMPARE(shown.row("red_light"), QString("REG|New|5"));

    // Without a node a show keeps all that the controller still offers, the element too, as far as it exists.
    shown.host.nodes.clear();
    registers.removeLast();
    registers.append(registerOf("New", "bool", "rw", 3));
    shown.host.registers = registers;
    shown.host.io["DO"].removeAll("DO2");
    shown.page.hide();
    shown.page.show();
    QCOMPARE(shown.row("red_light"), QString("REG|New|3"));
    QCOMPARE(shown.row("laser_enable"), QString("DO|DO1|(1)"));
    QCOMPARE(shown.row("gas_protect"), QString("DO||(1)"));
}

void TestWeldioPage::showing()
{
    Shown shown({{"power_enabled", true}});
    const QStringList calls = shown.asked([&] {
        shown.page.hide();
        shown.host.nodes[kNode] = mapping({{"power_port", "AO5"}});
        shown.host.io["GO"].append("AO5"); // a changed type empties the port all the same
        shown.page.show();
    });
    QCOMPARE(calls.mid(0, 2), QStringList({"registers", "read"}));
    QCOMPARE(calls.last(), QString("level"));
    QCOMPARE(shown.row("power"), QString("AO|AO5|(1)"));
    QVERIFY(!shown.button("power")->getIsEnabled() && !shown.form.isEnabled("comboBox_power_port"));
    QVERIFY(!shown.form.find("tabWidget_io")->styleSheet().isEmpty());

    // The window system restores a window: what was edited stays, the level counts.
    shown.combo("power", "type")->setCurrentIndex(1);
    shown.host.level = 2;
    shown.host.forget();
    restore(&shown.page);
    QVERIFY(shown.host.reads.filter(kNode).isEmpty() && !shown.page.isEnabled());
    QCOMPARE(shown.row("power"), QString("GO||(1)"));
}

void TestWeldioPage::onePassAsksOnce()
{
    // Registers in rows of both tables; all six types of points.
    Shown shown({{"power_type", 2}, {"power_port", "FloatOut"}, {"wire_feed_type", 2}, {"wire_feed_port", "BoolOut"}});
    QStringList types;
    const auto judge = [&](const QStringList& calls, int most) {
        return calls.count("io") <= most && calls.count("registers") <= 1 && calls.count("read") <= 1;
    };
    const QSignalSpy fillings(shown.combo("red_light", "port")->model(), &QAbstractItemModel::modelReset);
    QVERIFY(judge(shown.asked([&] {
        shown.page.hide();
        shown.page.show();
    }),
                  5));
    QVERIFY2(fillings.isEmpty(), "a list that stays the same is not filled in again");
    QVERIFY(judge(shown.asked([&] { shown.form.press("pushButton_Cancel"); }), 5));
    QVERIFY(judge(shown.asked([&] { shown.save(); }), 5));
    QCOMPARE(shown.host.lastMessage(), QString("0|Saved successfully"));
    QCOMPARE(shown.asked([&] { shown.combo("power", "type")->setCurrentIndex(1); }), QStringList{"io"});
    QCOMPARE(shown.asked([&] { shown.combo("power", "type")->setCurrentIndex(2); }), QStringList{"registers"});
}

void TestWeldioPage::rules_data()
{
    QTest::addColumn<QJsonObject>("changes");
    QTest::addColumn<QString>("message");
    const QString used = "2|Port %1 is already in use, save failed!";
    const QString empty = "2|There is an empty port. Please check and reconfigure!";
    const QString saved = "0|Saved successfully";
    const QString wrong = "2|Signal %1: register \"%2\" is invalid or has wrong read/write permission, expected %3.";
    const QJsonObject twice{{"power_port", "AO1"}, {"power_enabled", true}, {"frequency_port", "AO1"}};
    const QJsonObject bothOn = changed(twice, {{"frequency_enabled", true}});
    const QJsonObject lost{{"descent_signal_type", 2}, {"descent_signal_port", "Gone%2"}};
    const QJsonObject lostInput{{"light_feedback_type", 2}, {"light_feedback_port", "Gone%2"}};
    QTest::newRow("nothing wrong") << QJsonObject() << saved;
    QTest::newRow("twice, one is off") << twice << saved;
    QTest::newRow("twice") << bothOn << used.arg("AO1");
    QTest::newRow("without a switch") << QJsonObject{{"gas_protect_port", "DO1"}} << used.arg("DO1");
    QTest::newRow("in both tables") << QJsonObject{{"laser_enable_type", 2},
                                                   {"laser_enable_port", "Both"},
                                                   {"light_feedback_type", 2},
                                                   {"light_feedback_port", "Both"},
                                                   {"light_feedback_enabled", true}}
                                    << saved;
    const QJsonObject elements{{"laser_enable_type", 2},
                               {"laser_enable_port", "BoolOut"},
                               {"gas_protect_type", 2},
                               {"gas_protect_port", "BoolOut"}};
    QTest::newRow("same element") << elements << used.arg("BoolOut");
    QTest::newRow("other element") << changed(elements, {{"gas_protect_bias", 1}}) << saved;
    QTest::newRow("other server type") << QJsonObject{{"power_type", 1},
                                                      {"power_port", "GO5"},
                                                      {"power_enabled", true},
                                                      {"swing_job_port", "GO5"},
                                                      {"swing_job_enabled", true}}
                                       << saved;
    QTest::newRow("input, twice") << QJsonObject{{"light_feedback_port", "DI1"},
                                                 {"light_feedback_enabled", true},
                                                 {"laser_alarm_port", "DI1"},
                                                 {"laser_alarm_enabled", true}}
                                  << used.arg("DI1");
    QTest::newRow("required") << QJsonObject{{"gas_protect_port", ""}} << empty;
    QTest::newRow("switched on") << QJsonObject{{"laser_alarm_enabled", true}} << empty;
    QTest::newRow("output, off") << lost << wrong.arg("Descent signal", "Gone%2", "writable register");
    QTest::newRow("input, off") << lostInput << wrong.arg("Laser feedback", "Gone%2", "readable register");
    QTest::newRow("register before port")
        << changed(bothOn, lost) << wrong.arg("Descent signal", "Gone%2", "writable register");
    QTest::newRow("outputs before inputs") << changed(bothOn, lostInput) << used.arg("AO1");
    QTest::newRow("input, before empty ports")
        << changed(lostInput, {{"gas_protect_port", ""}}) << wrong.arg("Laser feedback", "Gone%2", "readable register");
}

void TestWeldioPage::rules()
{
    QFETCH(QJsonObject, changes);
    Shown shown;
    // All registers are there while the page is filled; at the moment of the save those of the name "Gone%2" are not.
    const QJsonArray registers = shown.host.registers.toArray() + QJsonValue(registerOf("Both", "bool", "rw", 1)) +
                                 QJsonValue(registerOf("Both", "bool", "ro", 1));
    shown.host.registers = registers + QJsonValue(registerOf("Gone%2", "bool", "rw", 1)) +
                           QJsonValue(registerOf("Gone%2", "bool", "ro", 1));
    shown.load(changes);
    shown.host.nodes[kNode] = shown.saved();
    const QJsonObject before = shown.saved();
    shown.host.registers = registers;
    shown.save();
    QTEST(shown.host.told().join('/'), "message");
    const bool isSaved = shown.host.lastMessage().startsWith('0');
    QCOMPARE(shown.host.sent(), isSaved ? QStringList{kSave} : QStringList());
    QCOMPARE(shown.saved(), before);
    // Not every message names the signal: the page turns to its row.
    const QString tag = QTest::currentDataTag();
    QCOMPARE(shown.form.find<QTabWidget>("tabWidget_io")->currentIndex(),
             tag.contains("input,") || tag == "switched on");
}

void TestWeldioPage::whatMayBeEdited()
{
    Shown shown({{"power_enabled", true}});
    const QStringList locks{"pushButton_Save", "pushButton_Cancel", "pushButton_power_enabled"};
    const auto state = [&](const char* key) {
        QString enabled;
        for (const char* name : {"label_%1_name", "comboBox_%1_type", "comboBox_%1_port", "comboBox_%1_bias"}) {
            enabled += shown.form.isEnabled(QString(name).arg(key)) ? '1' : '0';
        }
        return enabled;
    };
    const auto locked = [&] {
        return std::count_if(locks.begin(), locks.end(),
                             [&](const QString& name) { return !shown.form.isEnabled(name); });
    };
    // A row follows its switch; one without a switch is always on.
    QCOMPARE((QStringList{state("power"), state("frequency"), state("laser_enable")}),
             (QStringList{"1111", "0000", "1111"}));
    shown.form.press("pushButton_frequency_enabled");
    QCOMPARE(state("frequency"), QString("1111"));
    QCOMPARE(locked(), 0);
    // While welding is on everything is locked and every name stays legible.
    shown.weld(true);
    shown.page.applyIoPageOperateStatus();
    QCOMPARE((QStringList{state("power"), state("duty_cycle"), state("laser_enable")}),
             (QStringList{"1000", "1000", "1000"}));
    QVERIFY(shown.page.isEnabled() && locked() == locks.size());
    shown.host.level = 2;
    shown.page.applyIoPageOperateStatus();
    QVERIFY(!shown.page.isEnabled());
    shown.host.level = 3;
    shown.weld(false);
    shown.page.applyIoPageOperateStatus();
    QVERIFY(shown.page.isEnabled() && locked() == 0 && state("power") == "1111" && state("duty_cycle") == "0000");
}

void TestWeldioPage::fitsItsContent()
{
    Shown shown;
    shown.page.resize(1000, 900);
    for (const char* name : {"tableWidget_output", "tableWidget_input"}) {
        auto* table = shown.form.find<QTableWidget>(name);
        QTRY_COMPARE(table->rowHeight(0), 35);
        QVERIFY(table->maximumHeight() > table->rowCount() * 35 &&
                table->maximumHeight() < table->rowCount() * 35 + 60);
        QVERIFY(table->minimumWidth() > 400);
    }
    // An element that appears moves nothing.
    shown.load({{"power_type", 2}, {"power_enabled", true}});
    QCoreApplication::processEvents();
    const QRect before = shown.combo("power", "port")->geometry();
    shown.combo("power", "port")->setCurrentText("FloatOut");
    QCoreApplication::processEvents();
    QVERIFY(shown.combo("power", "bias")->isVisible());
    QCOMPARE(shown.combo("power", "port")->geometry(), before);
    QTest::qWait(50); // the show's own refresh is over
    // Every show fits anew, a changed tab and a new width do not.
    shown.host.nodes["brisel.fontzoom"] = 2;
    auto* outputs = shown.form.find<QTableWidget>("tableWidget_output");
    shown.form.find<QTabWidget>("tabWidget_io")->setCurrentIndex(1);
    shown.page.resize(1100, 900);
    QTest::qWait(50);
    QCOMPARE(outputs->rowHeight(0), 35);
    for (const int zoom : {2, 1}) {
        shown.page.hide();
        shown.host.nodes["brisel.fontzoom"] = zoom;
        shown.page.show();
        QCOMPARE(outputs->rowHeight(0), 35 * zoom);
        shown.host.forget();
        QTRY_VERIFY2(shown.host.reads.contains("brisel.fontzoom"), "once more, when the show is through");
    }
}

QTEST_MAIN(TestWeldioPage)
#include "tst_weldiopage.moc"
