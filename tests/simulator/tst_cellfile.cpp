#include "simulator/cellfile.h"
#include "simulator/confignodes.h"
#include "simulator/statefile.h"

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

using namespace sim;

namespace
{

QByteArray shippedText()
{
    QFile file(QStringLiteral(SHIPPED_CELL));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestCellFile : public QObject
{
    Q_OBJECT

private slots:
    void shippedCellIsComplete();
    void faultNamesFileAndMember();
    void unreadableFiles();
    void onlyRegularFiles();
    void stateKeepsPoints();
    void stateIsReplacedAsAWhole();

private:
    QString write(const QString& name, const QByteArray& text) const;

    QTemporaryDir m_folder;
    FileFault m_fault;
};

QString TestCellFile::write(const QString& name, const QByteArray& text) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        qFatal("can't write %s", qPrintable(file.fileName()));
    }
    return file.fileName();
}

void TestCellFile::shippedCellIsComplete()
{
    const auto cell = loadCell(QStringLiteral(SHIPPED_CELL), &m_fault);
    QVERIFY2(cell, qPrintable(m_fault.message()));
    // A series, a list with its order, and an object each arrive as they are written.
    const QStringList outputs = cell->io.value(QStringLiteral("DO"));
    QVERIFY(outputs.size() == 64 && outputs.first() == QLatin1String("DO1") && outputs.last() == QLatin1String("DO64"));
    QVERIFY(cell->speeds.first() == QLatin1String("v5") && cell->zones.first() == QLatin1String("fine"));
    QVERIFY(cell->tools.size() == 4 && cell->wobjs.last() == QLatin1String("fixture_a"));
    QVERIFY(cell->points.at(3) ==
            RobotPoint({"SeamStart", {812.4, -143.75, 212.6, 178.5, -12, 90}, "weld_head", "table_left"}));
    QVERIFY(cell->position == (Pose{704.2, -35.5, 498, 180, 0, 90}));
    QVERIFY(cell->currentTool == QLatin1String("weld_head") && cell->currentWobj == QLatin1String("table_left"));
    for (const QString& name : nodeNames()) {
        QVERIFY2(!cell->nodes.value(name).toObject().isEmpty(), qPrintable(name));
    }
}

void TestCellFile::faultNamesFileAndMember()
{
    struct Row {
        const char* part; ///< comes once in the shipped cell
        const char* replacement;
        const char* fault; ///< behind the file's name
    };
    const Row rows[] = {
        // What a schema says, once for each kind of rule and words.
        {"\"rd\"", "\"\"", "registers[13].rw: expected one of \"r\", \"rd\","},
        {"\"prefix\": \"GI\", \"first\": 1, ", "\"prefix\": \"GI\", ", "io.GI.first: missing"},
        {"\"prefix\": \"GI\", \"first\": 1, \"count\": 16", "\"prefix\": \"GI\", \"first\": 1, \"count\": 0",
         "io.GI.count: expected a whole number from 1 to 10000"},
        {"\"red_light_type\": 0", "\"red_light_type\": 1", "nodes.weld_io_config.red_light_type: expected one of 0, 2"},
        {"\"current_tool\"", "\"curent_tool\"", "curent_tool: unknown member"},
        {"\"weld_param_match\"", "\"a\\u0001b\\n\"", "nodes[\"a\\u0001b\\u000a\"]: unknown member"},
        {"[24, 1700, 1400, 80]", "[24, 1700, null, 80]",
         "nodes.weld_param_match.PowerData2.power_data[2][2]: expected a whole number from 10 to 10000"},
        {"[[8, 600, 400, 50], ", "[", "nodes.weld_param_match.PowerData2.power_data: expected a list of at least 4"},
        {"[80, 48]", "[80]", "nodes.weld_curve_config.feed_nodes_data[1]: expected a list of 2"},
        {"[[1, 1], [50, 51], [100, 100]]", "[]",
         "nodes.weld_curve_config.dutycycle_nodes_data: expected a list of 2 to 10"},
        {"\"power_nodes_data\"", "\"power_nodes\"", "nodes.weld_curve_config.power_nodes_data: missing"},
        {"virtual_welding_status\": true", "virtual_welding_status\": 1",
         "values[\"laser_weld_data.virtual_welding_status\"]: expected true or false"},
        {"498, 180, 0, 90]", "498, 360.5, 0, 90]", "position[3]: expected a number from -360 to 360"},
        {"[\"tool0\"", "[7", "tools[0]: expected a text that is not empty or an object"},
        // What no schema can say.
        {"\"R_PartCount\"", "\"R_SeamPose\"", "registers[46].name: the name \"R_SeamPose\" comes twice"},
        {"{ \"prefix\": \"GO\", \"first\": 1, \"count\": 16 }",
         "[\"GO7\", { \"prefix\": \"GO\", \"first\": 1, \"count\": 16 }]", "io.GO[1]: the name \"GO7\" comes twice"},
        {"\"name\": \"Park\"", "\"name\": \"Home\"", "points[1].name: the name \"Home\" comes twice"},
        {"\"tool\": \"weld_head_long\"", "\"tool\": \"none\"", "points[7].tool: \"none\" is not in the list \"tools\""},
        {"\"wobj\": \"table_right\"", "\"wobj\": \"none\"", "points[7].wobj: \"none\" is not in the list \"wobjs\""},
        {"\"current_tool\": \"weld_head\"", "\"current_tool\": \"fixture_a\"",
         "current_tool: \"fixture_a\" is not in the list \"tools\""},
        {"\"current_wobj\": \"table_left\"", "\"current_wobj\": \"weld_head\"",
         "current_wobj: \"weld_head\" is not in the list \"wobjs\""},
        {"[\"tool0\"", "[\"tool\\u00000\"", "tools[0]: expected a name"},
        {"{ \"prefix\": \"GI\", \"first\": 1, \"count\": 16 }",
         "[\"G\", { \"prefix\": \"GI\", \"first\": 1, \"count\": 10000 }]",
         "io.GI[1]: the list has more than 10000 names"},
    };
    for (const Row& row : rows) {
        QByteArray text = shippedText();
        QCOMPARE(text.count(row.part), 1);
        const QString path = write(QStringLiteral("cell.json"), text.replace(row.part, row.replacement));
        QVERIFY2(!loadCell(path, &m_fault), row.fault);
        QVERIFY2(m_fault.message().startsWith(path + QLatin1String(": ") + row.fault), qPrintable(m_fault.message()));
    }
}

void TestCellFile::unreadableFiles()
{
    const QPair<QByteArray, const char*> cases[] = {
        {" \n", ":1: the file is empty"},
        {"\n[]", ": expected an object"},
        {"{}\n{}", ":2: not JSON: "},
        {"{\n\n\"about\": \"\xff\"}", ":3: not JSON: "},
        {"\xEF\xBB\xBF{}", ": current_tool: missing"},
        {"{\"a\":\n" + QByteArray(1000, '[') + QByteArray(1000, ']') + '}', ": a: unknown member"},
        {"\n" + QByteArray(100000, '['), ":2: not JSON: "},
        {QByteArray(17 * 1024 * 1024, ' '), "larger than 16 MiB"},
    };
    for (const auto& [text, fault] : cases) {
        QVERIFY2(!loadCell(write(QStringLiteral("cell.json"), text), &m_fault), fault);
        QVERIFY2(m_fault.message().contains(QLatin1String(fault)), qPrintable(m_fault.message()));
    }
}

void TestCellFile::onlyRegularFiles()
{
    const QString pipe = m_folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    const QPair<QString, const char*> cases[] = {
        {m_folder.path(), "a folder"}, {pipe, "no regular file"}, {QStringLiteral("none.json"), "can't be read"}};
    for (const auto& [path, words] : cases) {
        QVERIFY(!loadCell(path, &m_fault));
        QVERIFY2(m_fault.message().contains(QLatin1String(words)), qPrintable(m_fault.message()));
    }
    const QString link = m_folder.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(QStringLiteral(SHIPPED_CELL), link));
    QVERIFY(loadCell(link, &m_fault));
}

void TestCellFile::stateKeepsPoints()
{
    const QString path = m_folder.filePath(QStringLiteral("points.json"));
    const auto cell = loadCell(QStringLiteral(SHIPPED_CELL), &m_fault);
    QVector<RobotPoint> points = cell->points;
    // To the last digit, and with a tool of which only another cell knows.
    points.append({QStringLiteral("\u7126 1"), {1.0 / 3, -999999, 1e-9, 359.99999999, -360, 0}, "tool9", "wobj9"});
    for (const QVector<RobotPoint>& kept : {points, QVector<RobotPoint>()}) {
        QCOMPARE(saveState(path, cell->nodes, kept), QString());
        const auto state = loadState(path, &m_fault);
        QVERIFY2(state, qPrintable(m_fault.message()));
        QVERIFY(state->points == kept && state->nodes == cell->nodes);
    }
    const QByteArray nodes = "{\"nodes\":" + QJsonDocument(cell->nodes).toJson(QJsonDocument::Compact);
    const auto withoutPoints = loadState(write(QStringLiteral("nodesonly.json"), nodes + '}'), &m_fault);
    QVERIFY(withoutPoints && !withoutPoints->points);
    const QByteArray bad = ",\n\"points\": [\n{\"name\": \"A\", \"position\": [1, 2, 3, 4, 5, 6],\n"
                           "\"tool\": \" t\", \"wobj\": \"w\"}]}";
    QVERIFY(!loadState(write(QStringLiteral("bad.json"), nodes + bad), &m_fault));
    QVERIFY2(m_fault.message().contains(QLatin1String("bad.json: points[0].tool: expected a name")),
             qPrintable(m_fault.message()));
}

void TestCellFile::stateIsReplacedAsAWhole()
{
    const QString path = m_folder.filePath(QStringLiteral("state.json"));
    const QString oldFile = m_folder.filePath(QStringLiteral("old.json"));
    QVERIFY(!loadState(write(QStringLiteral("bad.json"), "{\"nodes\": { \"weld_io_config\": 4 } }"), &m_fault));
    QVERIFY(m_fault.message().endsWith("bad.json: nodes.weld_io_config: expected an object or null"));
    const auto nodesIn = [this](const QString& file) { return loadState(file, &m_fault)->nodes; };
    QVERIFY(!nodesIn(path));
    const auto cell = loadCell(QStringLiteral(SHIPPED_CELL), &m_fault);
    const QJsonObject nodes = cell->nodes;
    QJsonObject otherNodes = nodes;
    otherNodes.insert(QLatin1String(node::kMatch), QJsonValue::Null);
    // The old file, here under a second name, stays what it was.
    QCOMPARE(saveState(path, nodes, cell->points), QString());
    QCOMPARE(link(qPrintable(path), qPrintable(oldFile)), 0);
    QCOMPARE(saveState(path, otherNodes, {}), QString());
    QVERIFY(nodesIn(oldFile) == nodes);
    QVERIFY(nodesIn(path) == otherNodes);
    // A write that gets no further than 4 KiB.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlim_t before = std::exchange(limit.rlim_cur, 4096);
    setrlimit(RLIMIT_FSIZE, &limit);
    const QString reason = saveState(path, nodes, cell->points);
    limit.rlim_cur = before;
    setrlimit(RLIMIT_FSIZE, &limit);
    QCOMPARE(reason, qt_error_string(EFBIG));
    QVERIFY(nodesIn(path) == otherNodes);
}

QTEST_GUILESS_MAIN(TestCellFile)
#include "tst_cellfile.moc"
