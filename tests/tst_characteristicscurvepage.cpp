// What Char. Curve shows and sends of each curve: nodes, charts, closed curves.
#include "tests/curveform.h"

#include <QPushButton>
#include <QTest>
#include <QWheelEvent>

#include <limits>

namespace
{

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

using Page = CharacteristicsCurvePage;

constexpr struct {
    QJsonObject (Page::*members)();
    QJsonObject (Page::*compute)();
    QJsonObject (Page::*save)();
    void (Page::*draw)();
} kNamed[] = {
    {&Page::saveWeldCurvePowerConfigToJson, &Page::computePowerCurveToJson, &Page::saveCurvePowerConfigToJson,
     &Page::computeDrawPowerChart},
    {&Page::saveWeldCurveFeedConfigToJson, &Page::computeFeedCurveToJson, &Page::saveCurveFeedConfigToJson,
     &Page::computeDrawFeedspeedChart},
    {&Page::saveWeldCurveFrequencyConfigToJson, &Page::computeFrequencyCurveToJson,
     &Page::saveCurveFrequencyConfigToJson, &Page::computeDrawFrequencyChart},
    {&Page::saveWeldCurveDutycycleConfigToJson, &Page::computeDutycycleCurveToJson,
     &Page::saveCurveDutycycleConfigToJson, &Page::computeDrawDutycycleChart},
};

struct Paints : QObject {
    int count = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

class TestCharacteristicsCurvePage : public QObject
{
    Q_OBJECT

private slots:
    void curves_data();
    void curves();
    void nodeCount();
    void loaded_data();
    void loaded();
    void cellsWithoutSpinBoxes();
    void drawn();
    void shown();
    void closed_data();
    void closed();
    void editable();
    void fitsTheScreen();
};

void TestCharacteristicsCurvePage::curves_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < 4; ++i) {
        QTest::newRow(kCurves[i].title) << i;
    }
}

/// Every curve has its own texts, ranges, members and commands; the others stay out of it.
void TestCharacteristicsCurvePage::curves()
{
    QFETCH(int, index);
    const Curve& curve = kCurves[index];
    Shown shown;
    shown.open(curve);
    const auto* tabs = shown.form.find<QTabWidget>("tabWidget");
    QCOMPARE(tabs->tabText(index), QString(curve.title));
    QCOMPARE(tabs->count(), 4);
    QCOMPARE(shown.counts(curve)->count(), 9);
    const QTableWidget* table = shown.table(curve);
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QString("Node"));
    QCOMPARE(shown.header(curve), QString("AO_") + curve.stem);
    QCOMPARE(table->horizontalHeaderItem(2)->text(), QString(curve.header));
    QCOMPARE(table->item(0, 0)->flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
    QCOMPARE(table->item(0, 0)->textAlignment(), int(Qt::AlignCenter));
    // What is stored is what is computed and saved.
    const QJsonObject stored = storedNode();
    const QString members = words(
        QJsonObject{{curve.countKey, stored.value(curve.countKey)}, {curve.nodesKey, stored.value(curve.nodesKey)}});
    shown.press(curve.compute);
    shown.press(curve.save);
    QCOMPARE(shown.host.sent(), QStringList({kCompute, kCompute, curve.command}));
    for (const auto& command : qAsConst(shown.host.commands)) {
        QCOMPARE(words(command.second), members);
    }
    QCOMPARE(shown.host.senders, QVector<QObject*>(3, &shown.page));
    QCOMPARE(shown.host.told(), QStringList{"0|Saved successfully"});
    QVERIFY(shown.chart(curve)->hasLine());
    QCOMPARE(shown.chart(kCurves[(index + 1) % 4])->hasLine(), false);
    shown.press(curve.cancel);
    QCOMPARE(shown.host.lastMessage(), QString("0|Cancel successful"));
    // Named one by one.
    const auto& named = kNamed[index];
    QCOMPARE(words((shown.page.*named.members)()), members);
    QCOMPARE(words((shown.page.*named.compute)().value(kCompute)), members);
    QCOMPARE(words((shown.page.*named.save)().value(curve.command)), members);
    shown.host.forget();
    (shown.page.*named.draw)();
    QCOMPARE(words(shown.host.commands[0].second), members);
    // Values beyond their ranges.
    shown.page.populateTable(shown.table(curve), 2, {{-1, -1e12}, {1e9, 1e12}});
    QCOMPARE(shown.nodes(curve), QStringLiteral("1:0.00/%1 2:65535.99/%2").arg(curve.least).arg(curve.greatest));
}

void TestCharacteristicsCurvePage::nodeCount()
{
    Shown shown;
    shown.counts()->setCurrentIndex(3);
    QCOMPARE(shown.nodes(), QString("1:0.00/0 2:0.00/0 3:0.00/0 4:0.00/0 5:0.00/0"));
    QCOMPARE(shown.header(), QString("AO_power"));
    QVERIFY(shown.port(4)->isEnabled() && shown.port(4)->font() == shown.port(0)->font());
    QCOMPARE(shown.port(0)->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(shown.value(4)->buttonSymbols(), QAbstractSpinBox::NoButtons);
    shown.port(0)->stepUp();
    QCOMPARE(shown.port(0)->value(), 0.01);
    shown.weld(true);
    shown.counts()->setCurrentIndex(4);
    QVERIFY(!shown.port(0)->isEnabled() && !shown.value(5)->isEnabled());
    QVERIFY(shown.host.calls.isEmpty() && shown.host.reads.isEmpty());
    shown.weld(false);
    shown.counts()->setCurrentIndex(0);
    QVERIFY(shown.port(0)->isEnabled());
    QWheelEvent wheel(QPoint(9, 9), QPoint(9, 9), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(shown.port(0), &wheel);
    QCOMPARE(shown.port(0)->value(), 0.0);
}

void TestCharacteristicsCurvePage::loaded_data()
{
    QTest::addColumn<QString>("json"); // members of the power curve, of which 9:9 and 8:8 were entered before
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("count");
    const QString before = "1:9.00/9 2:8.00/8";
    const QString zeros = "1:0.00/0 2:0.00/0 3:0.00/0";
    QTest::newRow("nothing") << "{}" << before << "2";
    QTest::newRow("fewer nodes") << R"({"laser_power_node":3,"power_nodes_data":[[1,2.9]]})"
                                 << "1:1.00/2 2:0.00/0 3:0.00/0"
                                 << "3";
    QTest::newRow("count alone") << R"({"laser_power_node":3})" << zeros << "3";
    QTest::newRow("the same count alone") << R"({"laser_power_node":2})" << before << "2";
    QTest::newRow("nodes no array") << R"({"laser_power_node":3,"power_nodes_data":{}})" << zeros << "3";
    QTest::newRow("nodes alone") << R"({"power_nodes_data":[[1,2],[3,4]]})"
                                 << ""
                                 << "2";
    QTest::newRow("too many") << R"({"laser_power_node":1000000000,"power_nodes_data":[[1,2]]})"
                              << "1:1.00/2 2:0.00/0 3:0.00/0 4:0.00/0 5:0.00/0 6:0.00/0 7:0.00/0 8:0.00/0 9:0.00/0 "
                                 "10:0.00/0"
                              << "2";
}

void TestCharacteristicsCurvePage::loaded()
{
    QFETCH(QString, json);
    Shown shown(object(R"({"laser_power_node":2,"power_nodes_data":[[9,9],[8,8]]})"));
    shown.page.loadWeldCurveConfigFromJson(object(json));
    QTEST(shown.nodes(), "nodes");
    QTEST(shown.counts()->currentText(), "count");
    shown.page.loadWeldCurveConfigFromJson(QJsonArray{object(json)});
    QTEST(shown.nodes(), "nodes");
    QCOMPARE(shown.page.saveWeldCurvePowerConfigToJson().value("laser_power_node").toInt(), shown.table()->rowCount());
}

void TestCharacteristicsCurvePage::cellsWithoutSpinBoxes()
{
    Shown shown;
    shown.table()->removeCellWidget(1, 1);
    shown.table()->setItem(1, 1, new QTableWidgetItem("11.5"));
    shown.table()->setItem(1, 2, new QTableWidgetItem("12.5"));
    QList<QPointF> points{{9, 9}};
    shown.page.readTableToPoints(shown.table(), points);
    QCOMPARE(points, QList<QPointF>({{0, 0}, {11.5, 12.5}, {20, 3000}}));
    QCOMPARE(shown.page.saveWeldCurvePowerConfigToJson().value("power_nodes_data").toArray()[1].toArray()[1],
             QJsonValue(12));
    QVERIFY(!shown.page.validateTableData(shown.table()));
    QVERIFY(shown.host.messages.isEmpty());
    shown.page.populateTable(shown.table(), 2, {{1, 2}, {3, 4}});
    QCOMPARE(shown.nodes(), QString("1:1.00/2 2:3.00/4"));
    shown.page.addRowToTable(shown.table(), 7, kNan, kNan);
    QCOMPARE(shown.nodes(), QString("1:1.00/2 2:3.00/4 7:0.00/0"));
    QTableWidget others(0, 2);
    shown.page.populateTable(&others, 2, {});
    shown.page.addRowToTable(&others, 1, 0, 0);
    QVERIFY(others.rowCount() == 0 && shown.host.warnings().size() == 2);
    shown.page.resetTableHeaderText(&others, "AO1");
    QCOMPARE(others.horizontalHeaderItem(1)->text(), QString("AO1"));
}

/// The chart has the nodes, the line and a range that fits them, as one that was given just that.
void TestCharacteristicsCurvePage::drawn()
{
    Shown shown;
    for (const bool isAnswered : {true, false}) { // without an answer the line before it goes, too
        shown.host.answers[kCompute] = isAnswered ? lineAnswer(0.5, 20) : QJsonArray();
        for (const Curve& curve : kCurves) {
            shown.open(curve);
            shown.showAgain();
            QTest::qWait(1);
            shown.host.onCall = [&](const QString& call) {
                if (call == "command") { // what is entered while it is computed is not drawn
                    shown.page.populateTable(shown.table(curve), 2, {{1, 1}, {2, 2}});
                }
            };
            Paints paints;
            CustomChart* chart = shown.chart(curve);
            chart->installEventFilter(&paints);
            shown.press(curve.compute);
            shown.host.onCall = nullptr;
            QTRY_VERIFY(paints.count > 0);
            const QList<QPointF> nodes = nodesOf(storedNode().value(curve.nodesKey).toArray());
            const auto [x, y] = limitsOf(nodes);
            CustomChart expected;
            expected.resize(chart->size());
            expected.setFont(chart->font());
            expected.setRange("", x.step, 0, x.maximum, "", y.step, y.minimum, y.maximum);
            expected.setPoints(nodes);
            expected.setLine(isAnswered ? 0.5 : 0, isAnswered ? 20 : 0);
            expected.setTips(QString("AO_") + curve.stem, curve.caption);
            QCOMPARE(chart->grab().toImage(), expected.grab().toImage());
        }
    }
    QVERIFY(shown.host.messages.isEmpty());
}

/// The order of a show. Lines that were drawn are computed again, at any level.
void TestCharacteristicsCurvePage::shown()
{
    Shown shown;
    QCOMPARE(shown.called([&] { shown.showAgain(); }), QStringList({kNode, kMapping, "level", kMapping}));
    for (const int index : {2, 0}) {
        shown.open(kCurves[index]);
        shown.press(kCurves[index].compute);
    }
    QJsonObject node = storedNode();
    node.insert("power_nodes_data", object(R"({"a":[[1,1],[2,1],[3,3]]})").value("a"));
    shown.host.nodes[kNode] = node;
    shown.host.level = 2;
    shown.host.forget();
    QCOMPARE(shown.called([&] { shown.showAgain(); }), QStringList({kNode, kMapping, "message", kCompute, "level"}));
    QCOMPARE(shown.host.told(), QStringList{"1|The data in line 2 must be greater than the data in row 1!"});
    QCOMPARE(shown.host.commands[0].second.toObject().value("laser_frequency_node"), QJsonValue(4));
    QVERIFY(!shown.page.isEnabled());
    // A window that is restored keeps what was entered.
    shown.host.level = 3;
    shown.value(0)->setValue(0);
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    QCOMPARE(shown.called([&] { qApp->notify(&shown.page, &restored); }),
             QStringList({kMapping, kCompute, kCompute, "level", kMapping}));
    QCOMPARE(shown.value(0)->value(), 0);
    QVERIFY(shown.page.isEnabled());
}

void TestCharacteristicsCurvePage::closed_data()
{
    QTest::addColumn<QString>("mapping");
    QTest::addColumn<QString>("header");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("off") << R"({"wire_speed_enabled":false,"wire_speed_port":"AO1"})"
                         << "Not configured" << false;
    QTest::newRow("1") << R"({"wire_speed_enabled":1,"wire_speed_port":"AO1"})"
                       << "Not configured" << false;
    QTest::newRow("null") << R"({"wire_speed_enabled":true,"wire_speed_port":null})"
                          << "Not configured" << false;
    QTest::newRow("no port") << R"({"wire_speed_enabled":true})"
                             << "" << true;
    QTest::newRow("number") << R"({"wire_speed_enabled":true,"wire_speed_port":7})"
                            << "" << true;
    QTest::newRow("blanks") << R"({"wire_speed_enabled":true,"wire_speed_port":" AO 1 "})"
                            << " AO 1 " << true;
    QTest::newRow("no object") << "[]"
                               << "AO_wire_speed" << false;
}

void TestCharacteristicsCurvePage::closed()
{
    QFETCH(QString, mapping);
    const Curve& feed = kCurves[1];
    Shown shown;
    QWidget* page = shown.form.find<QTabWidget>("tabWidget")->widget(1);
    const QJsonDocument document = QJsonDocument::fromJson(mapping.toUtf8());
    shown.host.nodes[kMapping] = document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    shown.page.initTableHeaderText();
    QTEST(shown.header(feed), "header");
    QCOMPARE(page->isEnabled(), shown.header(feed) != "Not configured");
    shown.showAgain();
    QTEST(shown.header(feed), "header");
    QTEST(page->isEnabled(), "isOpen");
    QTEST(shown.page.isCurveTabIoConfigured(1), "isOpen");
    QVERIFY(shown.form.find<QTabWidget>("tabWidget")->isTabEnabled(1));
    QVERIFY(!shown.form.find<QTabWidget>("tabWidget")->widget(0)->isEnabled());
    // What is in use again opens again.
    shown.host.nodes[kMapping] = ::mapping();
    shown.page.setCurveTabEditable(1, false);
    QVERIFY(page->isEnabled() && !shown.form.isEnabled(feed.save));
    for (const int none : {4, -1}) {
        shown.page.setCurveTabEditable(none, true);
        QVERIFY(!shown.page.isCurveTabIoConfigured(none));
    }
}

void TestCharacteristicsCurvePage::editable()
{
    Shown shown;
    const auto state = [&] {
        QStringList enabled;
        QWidget* const widgets[] = {&shown.page,
                                    shown.table(),
                                    shown.chart(),
                                    shown.port(0),
                                    shown.value(2),
                                    shown.counts(),
                                    shown.form.find(kPower.compute),
                                    shown.form.find(kPower.cancel),
                                    shown.form.find(kPower.save)};
        for (const QWidget* widget : widgets) {
            enabled.append(QString::number(widget->isEnabled()));
        }
        return enabled.join("") + QString::number(shown.table()->editTriggers());
    };
    const int edits =
        QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed;
    QCOMPARE(state(), "111111111" + QString::number(edits));
    shown.weld(true);
    shown.showAgain();
    QCOMPARE(state(), QString("1110000000"));
    shown.host.level = 2;
    shown.page.applyCurvePageOperateStatus();
    QCOMPARE(state(), QString("0000000000"));
    shown.weld(false);
    shown.host.level = 3;
    shown.page.applyCurvePageOperateStatus();
    QCOMPARE(state(), "111111111" + QString::number(edits));
}

/// Ten nodes are in sight without scrolling, beside a chart with all the room that is left.
void TestCharacteristicsCurvePage::fitsTheScreen()
{
    Shown shown;
    shown.page.resize(1080, 640);
    shown.page.initStyle();
    shown.counts()->setCurrentIndex(8);
    QTest::qWait(1);
    QVERIFY(shown.table()->viewport()->height() >= shown.table()->verticalHeader()->length());
    QVERIFY(shown.chart()->width() > 600 && shown.chart()->height() > 400);
    const QHeaderView* header = shown.table()->horizontalHeader();
    QCOMPARE(header->length(), shown.table()->viewport()->width());
    QCOMPARE(header->sectionSize(2), header->sectionSizeHint(2)); // no room that the chart could have
    shown.page.resize(shown.page.minimumSizeHint());
    QTest::qWait(1);
    // Five digits are written smaller while there is little room for them.
    const CustomChart* chart = shown.chart(kCurves[3]);
    shown.open(kCurves[3]);
    shown.press(kCurves[3].compute);
    QTest::qWait(1);
    QVERIFY(chart->font().pointSize() < 9);
    shown.page.resize(1400, 640);
    QTest::qWait(1);
    QCOMPARE(chart->font().pointSize(), 9);
}

QTEST_MAIN(TestCharacteristicsCurvePage)
#include "tst_characteristicscurvepage.moc"
