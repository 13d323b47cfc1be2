#include "simulator/cellfile.h"

#include "simulator/jsoncheck.h"
#include "simulator/nodeschema.h"
#include "simulator/pointschema.h"

#include <QSet>

namespace sim
{

namespace
{

constexpr int kLongestRegister = 1000;

const QStringList& ioTypes()
{
    static const QStringList types = {QStringLiteral("DI"), QStringLiteral("DO"), QStringLiteral("AI"),
                                      QStringLiteral("AO"), QStringLiteral("GI"), QStringLiteral("GO")};
    return types;
}

const QStringList& registerTypes()
{
    static const QStringList types = {QStringLiteral("bool"),   QStringLiteral("bit"),    QStringLiteral("int8"),
                                      QStringLiteral("uint8"),  QStringLiteral("byte"),   QStringLiteral("int16"),
                                      QStringLiteral("uint16"), QStringLiteral("word"),   QStringLiteral("short"),
                                      QStringLiteral("int32"),  QStringLiteral("uint32"), QStringLiteral("dword"),
                                      QStringLiteral("int"),    QStringLiteral("int64"),  QStringLiteral("uint64"),
                                      QStringLiteral("long"),   QStringLiteral("float"),  QStringLiteral("double")};
    return types;
}

const QStringList& accessWords()
{
    static const QStringList words = {QStringLiteral("r"),     QStringLiteral("rd"),       QStringLiteral("ro"),
                                      QStringLiteral("read"),  QStringLiteral("readonly"), QStringLiteral("w"),
                                      QStringLiteral("wr"),    QStringLiteral("wo"),       QStringLiteral("wt"),
                                      QStringLiteral("write"), QStringLiteral("rw"),       QStringLiteral("rdwr")};
    return words;
}

/// Appends the names of a series such as {"prefix": "DO", "first": 1, "count": 64}.
void appendSeries(JsonCheck& check, const QJsonObject& series, const JsonPath& path, QStringList* names)
{
    const QString prefix = QStringLiteral("prefix");
    const QString first = QStringLiteral("first");
    const QString count = QStringLiteral("count");
    check.members(series, path, {prefix, first, count});
    const QString stem = check.name(series.value(prefix), path / prefix);
    const int start = check.whole(series.value(first), path / first, 0, kMostNames);
    const int length = check.whole(series.value(count), path / count, 1, kMostNames);
    for (int i = 0; check.ok() && i < length; ++i) {
        names->append(stem + QString::number(start + i));
    }
}

/// A list of names: a series, or an array of names and series. No name may come twice.
QStringList readNames(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    QStringList names;
    QSet<QString> known;
    const bool single = value.isObject();
    const QJsonArray entries = single ? QJsonArray{value} : check.array(value, path);
    for (int i = 0; check.ok() && i < entries.size(); ++i) {
        const QJsonValue entry = entries.at(i);
        const JsonPath entryPath = single ? path : path / i;
        const int before = names.size();
        if (entry.isObject()) {
            appendSeries(check, entry.toObject(), entryPath, &names);
        } else {
            names.append(check.name(entry, entryPath));
        }
        for (int n = before; n < names.size(); ++n) {
            check.another(names.at(n), entryPath, &known);
        }
    }
    return names;
}

QJsonArray readRegisters(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QString name = QStringLiteral("name");
    const QString type = QStringLiteral("type");
    const QString access = QStringLiteral("rw");
    const QString length = QStringLiteral("len");
    QJsonArray registers = check.array(value, path);
    QSet<QString> known;
    for (int i = 0; check.ok() && i < registers.size(); ++i) {
        const JsonPath entryPath = path / i;
        const QJsonObject entry = check.object(registers.at(i), entryPath);
        check.members(entry, entryPath, {name, type, access, length});
        const QString registerName = check.name(entry.value(name), entryPath / name);
        check.word(entry.value(type), entryPath / type, registerTypes());
        check.word(entry.value(access), entryPath / access, accessWords());
        check.whole(entry.value(length), entryPath / length, 1, kLongestRegister);
        check.another(registerName, entryPath / name, &known);
    }
    return registers;
}

void checkChoice(JsonCheck& check, const QString& name, const JsonPath& path, const QStringList& names,
                 const char* list)
{
    if (!names.contains(name)) {
        check.fail(path, JsonCheck::tr("\"%1\" is not in the list \"%2\"").arg(name, QLatin1String(list)));
    }
}

QString readChoice(JsonCheck& check, const QJsonValue& value, const JsonPath& path, const QStringList& names,
                   const char* list)
{
    QString name = check.name(value, path);
    checkChoice(check, name, path, names, list);
    return name;
}

/// The points of a cell, which are meant for its own tools and work objects.
QVector<RobotPoint> readOwnPoints(JsonCheck& check, const QJsonValue& value, const JsonPath& path, const Cell& cell)
{
    QVector<RobotPoint> points = readPoints(check, value, path);
    for (int i = 0; i < points.size(); ++i) {
        checkChoice(check, points.at(i).tool, path / i / QStringLiteral("tool"), cell.tools, "tools");
        checkChoice(check, points.at(i).wobj, path / i / QStringLiteral("wobj"), cell.wobjs, "wobjs");
    }
    return points;
}

QJsonObject readValues(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    QJsonObject values = check.object(value, path);
    check.members(values, path, valueNames());
    for (const QString& name : valueNames()) {
        check.boolean(values.value(name), path / name);
    }
    return values;
}

QJsonObject readHostSettings(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QString zoom = QLatin1String(kFontZoom);
    QJsonObject settings = check.object(value, path);
    check.members(settings, path, {zoom});
    check.number(settings.value(zoom), path / zoom, kLowestFontZoom, kHighestFontZoom);
    return settings;
}

QMap<QString, QStringList> readIo(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QJsonObject io = check.object(value, path);
    check.members(io, path, ioTypes());
    QMap<QString, QStringList> result;
    for (const QString& type : ioTypes()) {
        result.insert(type, readNames(check, io.value(type), path / type));
    }
    return result;
}

Cell readCell(JsonCheck& check, const QJsonObject& root)
{
    const JsonPath top;
    const QString about = QStringLiteral("about");
    const QString nodes = QStringLiteral("nodes");
    const QString values = QStringLiteral("values");
    const QString host = QStringLiteral("host");
    const QString io = QStringLiteral("io");
    const QString registers = QStringLiteral("registers");
    const QString points = QStringLiteral("points");
    const QString position = QStringLiteral("position");
    const QString currentTool = QStringLiteral("current_tool");
    const QString currentWobj = QStringLiteral("current_wobj");
    const QStringList lists = {QStringLiteral("tools"), QStringLiteral("wobjs"), QStringLiteral("speeds"),
                               QStringLiteral("zones")};
    check.members(root, top,
                  QStringList{nodes, values, host, io, registers, points, position, currentTool, currentWobj} + lists,
                  {about});
    if (root.contains(about)) {
        check.text(root.value(about), top / about);
    }
    const auto names = [&](int list) { return readNames(check, root.value(lists.at(list)), top / lists.at(list)); };
    Cell cell;
    cell.nodes = checkNodes(check, root.value(nodes), top / nodes);
    cell.values = readValues(check, root.value(values), top / values);
    cell.hostSettings = readHostSettings(check, root.value(host), top / host);
    cell.io = readIo(check, root.value(io), top / io);
    cell.registers = readRegisters(check, root.value(registers), top / registers);
    cell.tools = names(0);
    cell.wobjs = names(1);
    cell.speeds = names(2);
    cell.zones = names(3);
    cell.points = readOwnPoints(check, root.value(points), top / points, cell);
    cell.position = readPose(check, root.value(position), top / position);
    cell.currentTool = readChoice(check, root.value(currentTool), top / currentTool, cell.tools, "tools");
    cell.currentWobj = readChoice(check, root.value(currentWobj), top / currentWobj, cell.wobjs, "wobjs");
    return cell;
}

} // namespace

std::optional<Cell> loadCell(const QString& path, FileFault* fault)
{
    const std::optional<JsonFile> file = JsonFile::read(path, fault);
    if (!file) {
        return std::nullopt;
    }
    JsonCheck check;
    Cell cell = readCell(check, file->root());
    if (check.fault()) {
        *fault = file->faultAt(check.fault()->path, check.fault()->text);
        return std::nullopt;
    }
    return cell;
}

} // namespace sim
