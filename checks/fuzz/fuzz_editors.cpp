// Program lines into every instruction editor and out again. An input is a line, or decisions that put one together
// from what instructions hold, and that work the editor's point by hand.
#include "checks/fuzz/application.h"
#include "checks/fuzz/input.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "rl/instructiontext.h"
#include "rl/rlcustominsertwidget.h"
#include "rl/rlcustompropretywidget.h"
#include "rl/rllaseroninsertwidget.h"
#include "rl/rlparasetinsertwidget.h"
#include "rl/setuppointwidget.h"
#include "rl/wmovecfinsertwidget.h"
#include "rl/wmovecfpropertywidget.h"
#include "rl/wmovecinsertwidget.h"
#include "rl/wmovecpropertywidget.h"
#include "rl/wmovelinsertwidget.h"
#include "rl/wmovelpropertywidget.h"
#include "tests/fakehost.h"

#include <QComboBox>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>
#include <memory>

using namespace fuzz;

namespace
{

using Editor = std::unique_ptr<pendix::RLContentBase>;

template <typename T>
Editor named()
{
    return std::make_unique<T>(QStringLiteral("Ins"), nullptr);
}

template <typename T>
Editor motion()
{
    return std::make_unique<T>(nullptr);
}

constexpr char kNames[] = R"((NULL|v100|v5), (z10|fine), (tool0|gun), (table|wobj0)\);)";

struct Row {
    Editor (*create)();
    bool reads;          ///< takes something from a line
    bool stores;         ///< stores points
    const char* pattern; ///< of what it writes, up to the names that motions end with
    bool isMotion;
};

const Row kRows[] = {
    {named<pendix::RLLaserOnInsertWidget>, true, false,
     R"re(LaserOn\("LsData([1-9]|[12]\d|30)"(, ([1-4]?\d{1,3}|5000))?\);)re", false},
    {named<pendix::RLParaSetInsertWidget>, true, false,
     R"re(LsParaSet\("LsData([1-9]|[12]\d|30)"(,"Pos"|,"Time",(\d{1,3}|1000))?\);)re", false},
    {named<pendix::RLCustomInsertWidget>, false, false, "Ins ,", false},
    {named<pendix::RLCustomPropretyWidget>, false, false, "Ins ,", false},
    {motion<WMoveLPropertyWidget>, true, false, R"(LsMoveL\([^\n]+, )", true},
    {motion<WMoveCPropertyWidget>, true, false, R"(LsMoveC\([^\n]+, [^\n]+, )", true},
    {motion<WMoveCFPropertyWidget>, true, false,
     R"re(LsMoveCF\([^\n]+, [^\n]+, -?[0-9.]+, "(RotAxis|ConstPose|FixedAxis)", )re", true},
    {motion<WMoveLInsertWidget>, false, true, R"(LsMoveL\(p3, )", true},
    {motion<WMoveCInsertWidget>, false, true, R"(LsMoveC\(p3, p4, )", true},
    {motion<WMoveCFInsertWidget>, false, true, R"re(LsMoveCF\(p3, p4, 360, "RotAxis", )re", true},
};

void noWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    // The log file may be /dev/null, which has no end to go to.
    const bool isLogFile = text.startsWith(QLatin1String("QIODevice::seek"));
    if (type != QtDebugMsg && type != QtInfoMsg && !isLogFile) {
        fail("Qt says: " + text);
    }
}

void furnish(FakeHost& host)
{
    host.io = {{"point", {"p1", "p2"}},
               {"speed", {"v100", "v5"}},
               {"zone", {"z10", "fine"}},
               {"tool", {"tool0", "gun"}},
               {"wobj", {"table", "wobj0"}}};
    host.nodes["tool"] = "gun";
    host.nodes["wobj"] = "wobj0";
}

QString inventNumber(Dice& dice)
{
    const QStringList numbers{"0",   "-1",   "360",       "5000", "1e308",     "-1e-7",
                              "nan", "-inf", "0.0000005", "x",    "123456.789"};
    return dice.below(2) == 0 ? dice.oneOf(numbers) : QString::number(dice.below(60000) - 30000);
}

QString inventArgument(Dice& dice)
{
    const QStringList words{"p1",    "\"LsData7\"", "\"Time\"",      "\"pos\"", "v5",    "fine",
                            "tool0", "wobj0",       "\"FixedAxis\"", "table",   "(a,b)", ""};
    switch (dice.below(6)) {
    case 0:
        return inventNumber(dice);
    case 1:
        return anyText(dice);
    case 2:
    case 3: {
        QStringList parts{dice.oneOf(words)};
        const bool isOffs = dice.below(2) == 0;
        for (int i = isOffs ? 3 : 6; i > 0; --i) {
            parts.append(inventNumber(dice));
        }
        if (dice.oneIn(8)) {
            parts.removeLast();
        }
        return (isOffs ? "Offs(" : "RelTool(") + parts.join(',') + ')';
    }
    default:
        return dice.oneOf(words);
    }
}

QString inventLine(Dice& dice)
{
    QStringList arguments;
    for (int i = dice.below(10); i > 0; --i) {
        arguments.append(inventArgument(dice));
    }
    return "LsMoveL(" + arguments.join(',') + (dice.oneIn(16) ? "" : ");");
}

/// Whether a typed text is a point's name for sure: one that holds nothing of what lines are made of.
bool isName(const QString& text)
{
    const auto isPart = [](QChar c) {
        return QString("\",();\u2028\u2029").contains(c) || c.category() == QChar::Other_Control;
    };
    return !text.isEmpty() && text == text.trimmed() && text.isValidUtf16() && !text.contains("//") &&
           std::none_of(text.begin(), text.end(), isPart);
}

/// Whether a line is one call with that many arguments, whose parentheses match and which nothing follows.
bool isOneCall(const QString& line, int arguments, int quotes)
{
    QString name;
    QStringList found;
    return corvane::util::extractFunctionAndParameters(line, name, found) && found.size() == arguments &&
           line.count('(') == line.count(')') && line.count(';') == 1 && line.count('"') == quotes &&
           !line.contains("//") &&
           std::all_of(found.begin(), found.end(), [](const QString& one) { return one.count('(') == one.count(')'); });
}

void requireReadBack(const Row& row, const QString& written)
{
    const Editor other = row.create();
    other->FillWith(written);
    require(other->ToString() == written, "what an editor wrote is not what another one reads");
}

void checkLine(const Row& row, const QString& line)
{
    const Editor editor = row.create();
    const QString before = editor->ToString();
    editor->FillWith(line);
    const QString written = editor->ToString();
    const QString pattern = QLatin1String(row.pattern) + QLatin1String(row.isMotion ? kNames : "");
    const QRegularExpression form('^' + pattern + "\\z");
    require(form.match(written).hasMatch(), "an editor writes what its instruction does not allow");
    const bool isInsertable = editor->CheckInsert();
    const bool isReplaceable = editor->CheckReplace();
    // The welding lines are for both, a generic editor for its own purpose, a motion for level 3.
    require(isInsertable + isReplaceable == (row.isMotion ? 0 : row.reads ? 2 : 1), "an editor's checks are wrong");
    if (!row.reads) {
        require(written == before, "an editor that reads nothing is changed by a line");
        return;
    }
    editor->FillWith(written);
    require(editor->ToString() == written, "an editor changes when it reads its own line");
    requireReadBack(row, written);
}

/// Types a point and switches its expression, as an operator does; then lets the editor write.
void checkByHand(FakeHost& host, const Row& row, Dice& dice)
{
    const QStringList names{"p1", "P1", "p3", "weld", " ", "a,b", "%1", "Offs(p1,0,0,5)", "p1); f(\"a\"", "a/b"};
    host.level = dice.below(5);
    const Editor editor = row.create();
    QStringList fresh;
    bool allNames = true;
    const auto points = editor->findChildren<SetUpPointWidget*>();
    for (const SetUpPointWidget* point : points) {
        auto* list = point->findChild<QComboBox*>(QStringLiteral("cbxPoint"));
        const QString name = dice.below(2) == 0 ? dice.oneOf(names) : anyText(dice);
        list->setEditText(name);
        allNames = allNames && isName(list->currentText());
        for (const char* button : {"btnOffs", "btnReltool", "btnOffs"}) {
            if (dice.below(2) == 1) {
                point->findChild<QPushButton*>(QLatin1String(button))->click();
            }
        }
        const QString typed = list->currentText();
        if (isName(typed) && !host.io["point"].contains(typed) && !fresh.contains(typed)) {
            fresh.append(typed);
        }
    }
    host.calls.clear();
    const bool mayChange = host.level > 2;
    const bool agrees = row.stores ? editor->CheckInsert() : editor->CheckReplace();
    require(!(row.stores ? editor->CheckReplace() : editor->CheckInsert()), "an editor agrees to the other's purpose");
    require(mayChange || !agrees, "a line is allowed below level 3");
    require(!mayChange || !allNames || agrees, "a line is refused wrongly");
    const QString written = editor->ToString();
    const bool isCircle = written.startsWith("LsMoveCF");
    require(!agrees || isOneCall(written, isCircle ? 8 : 4 + points.size(), isCircle ? 2 : 0),
            "a point's name makes another line");
    require(host.calls.size() == (row.stores && mayChange ? fresh.size() : 0), "points are stored that must not be");
    if (row.reads && allNames) {
        requireReadBack(row, written);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    startApplication();
    qInstallMessageHandler(noWarning);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FakeHost host;
    furnish(host);
    const Input input(data, size);
    ByteDice dice = input.dice();
    if (input.holdsDecisions()) {
        const Row& row = kRows[dice.below(std::size(kRows))];
        host.level = 2;
        checkLine(row, inventLine(dice));
        if (row.isMotion) {
            checkByHand(host, row, dice);
        }
        return 0;
    }
    // Nothing is stored below level 3, so that two texts of an editor can be compared. Into one editor, since ten make
    // a slow fuzzer; a changed line falls to another one.
    host.level = 2;
    const QByteArray line = input.text();
    const Row& row = kRows[qChecksum(line.constData(), static_cast<uint>(line.size())) % std::size(kRows)];
    checkLine(row, QString::fromUtf8(line));
    require(host.calls.isEmpty(), "a line stores points");
    return 0;
}
