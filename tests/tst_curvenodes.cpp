// The rules of the characteristic curves, over values.
#include "page/curves/curvenodes.h"

#include <QJsonDocument>
#include <QTest>

#include <limits>

namespace
{

constexpr int kMost = std::numeric_limits<int>::max();

QJsonArray array(const QString& json)
{
    return QJsonDocument::fromJson(json.toUtf8()).array();
}

/// "10.5|11|2|0" for {10.5, 11}, {2, 0}.
QString words(const QList<QPointF>& nodes)
{
    QStringList all;
    for (const QPointF& node : nodes) {
        all << QString::number(node.x()) << QString::number(node.y());
    }
    return all.join('|');
}

} // namespace

class TestCurveNodes : public QObject
{
    Q_OBJECT

private slots:
    void stored();
    void fault_data();
    void fault();
    void line_data();
    void line();
    void step();
    void limits_data();
    void limits();
};

void TestCurveNodes::stored()
{
    QCOMPARE(words(nodesOf(array(R"([[1,2],[3,"4"],5,[6],[7,8,9],null,[10.5,11.9],[[1,2]],[true,1]])"))),
             QString("1|2|10.5|11.9"));
    const CurveSpec& feed = kCurveSpecs[1];
    const auto count = [](const QJsonValue& value) { return storedCurve(feed, {{"laser_feed_node", value}}).count; };
    QCOMPARE(count(4), 4);
    for (const QJsonValue& other : {QJsonValue(4.5), QJsonValue("4"), QJsonValue(1e12), QJsonValue()}) {
        QCOMPARE(count(other), 0);
    }
    QVERIFY(!storedCurve(feed, {{"laser_power_node", 3}, {"feed_nodes_data", 3}}).count);
    QVERIFY(!storedCurve(feed, {{"power_nodes_data", QJsonArray()}, {"feed_nodes_data", 3}}).nodes);
    QVERIFY(storedCurve(feed, {{"feed_nodes_data", QJsonArray()}}).nodes->isEmpty());
}

void TestCurveNodes::fault_data()
{
    QTest::addColumn<QString>("rows"); // "x,y" each; "-" can't be edited
    QTest::addColumn<QString>("fault");
    QTest::newRow("none") << ""
                          << "too few";
    QTest::newRow("one") << "1,1"
                         << "too few";
    QTest::newRow("rising") << "0,0 0.01,1 65535.99,65535"
                            << "";
    QTest::newRow("port value stays") << "0,0 10,1000 10,2000"
                                      << "3";
    QTest::newRow("physical value stays") << "0,0 10,0 5,5"
                                          << "2";
    QTest::newRow("falls") << "5,5 4,6 3,7"
                           << "2";
    QTest::newRow("first can't be edited") << "- 1,1"
                                           << "not entered";
    QTest::newRow("a fault before that") << "1,1 1,1 -"
                                         << "2";
    QTest::newRow("that before a fault") << "1,1 2,2 - 1,1"
                                         << "not entered";
}

void TestCurveNodes::fault()
{
    QFETCH(QString, rows);
    QVector<std::optional<QPointF>> nodes;
    for (const QString& row : rows.split(' ', Qt::SkipEmptyParts)) {
        const QStringList values = row.split(',');
        nodes.append(row == "-" ? std::optional<QPointF>() : QPointF(values[0].toDouble(), values[1].toDouble()));
    }
    const auto fault = firstFault(nodes);
    QString found;
    if (fault) {
        const QString kinds[] = {"too few", QString::number(fault->row), "not entered"};
        found = kinds[static_cast<int>(fault->kind)];
    }
    QTEST(found, "fault");
}

void TestCurveNodes::line_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("line"); // "slope intercept"
    const QString one = R"({"Corvane":{"compute_curve_config":{"intercept":%1,"slope":%2}}})";
    QTest::newRow("no element") << "[]"
                                << "";
    QTest::newRow("one") << '[' + one.arg("-2.5", "3") + ']' << "3 -2.5";
    QTest::newRow("refused") << R"([{"Corvane":{"compute_curve_config":{"return":7,"slope":1}}}])"
                             << "1 0";
    QTest::newRow("the second counts") << '[' + one.arg("1", "2") + ',' + one.arg("3", "4") + ']' << "4 3";
    QTest::newRow("a later one clears") << '[' + one.arg("1", "2") + ",{}]"
                                        << "0 0";
    QTest::newRow("texts") << '[' + one.arg("\"1\"", "true") + ']' << "0 0";
}

void TestCurveNodes::line()
{
    QFETCH(QString, result);
    const auto line = lineOf(array(result));
    QTEST(line ? QStringLiteral("%1 %2").arg(line->slope).arg(line->intercept) : QString(), "line");
}

void TestCurveNodes::step()
{
    const QList<QPair<int, int>> steps{
        {-5, 1},  {0, 1},    {1, 0},    {8, 0},      {9, 1},      {10, 2},     {11, 3},       {50, 6},
        {99, 11}, {100, 20}, {101, 30}, {1000, 200}, {3000, 400}, {6001, 800}, {65536, 8000}, {kMost, 400000000}};
    for (const auto& [maximum, step] : steps) {
        QCOMPARE(tickStep(maximum), step);
    }
}

void TestCurveNodes::limits_data()
{
    QTest::addColumn<QList<QPointF>>("nodes");
    QTest::addColumn<QVector<int>>("range"); // step, minimum and maximum of x, of y
    QTest::newRow("none") << QList<QPointF>() << QVector<int>{2, 0, 10, 1, 0, 5};
    QTest::newRow("at the limits") << QList<QPointF>{{0, 0}, {10, 5}} << QVector<int>{2, 0, 10, 1, 0, 5};
    QTest::newRow("large") << QList<QPointF>{{0, 0}, {1000, 3000}} << QVector<int>{300, 0, 1001, 500, 0, 3001};
    QTest::newRow("one node at a time") << QList<QPointF>{{10.5, 6}, {11, 7}} << QVector<int>{3, 0, 11, 1, 0, 7};
    QTest::newRow("below zero") << QList<QPointF>{{-3, -2.5}, {0, -9}} << QVector<int>{2, 0, 10, 1, -10, 5};
    QTest::newRow("beyond int") << QList<QPointF>{{1e12, 1e12}}
                                << QVector<int>{400000000, 0, kMost, 400000000, 0, kMost};
}

void TestCurveNodes::limits()
{
    QFETCH(QList<QPointF>, nodes);
    const CurveLimits found = limitsOf(nodes);
    const QVector<int> range{found.x.step, found.x.minimum, found.x.maximum,
                             found.y.step, found.y.minimum, found.y.maximum};
    QTEST(range, "range");
}

QTEST_APPLESS_MAIN(TestCurveNodes)
#include "tst_curvenodes.moc"
