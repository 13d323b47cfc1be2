// Robot programs and the templates of their instructions. An input is a text, read as a program file and each of its
// lines as an instruction and as a template; or decisions that make up a program and a template.
#include "checks/fuzz/application.h"
#include "checks/fuzz/filecheck.h"
#include "checks/fuzz/input.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "simulator/program/instructionline.h"
#include "simulator/program/programfile.h"
#include "simulator/program/recogniser.h"
#include "simulator/program/templateeditor.h"

#include <limits>

using namespace fuzz;
using namespace sim;

namespace
{

constexpr int kMostLines = 6;
constexpr int kMostFields = 4;
constexpr int kMostItems = 5;

constexpr const char* kPatterns[][2] = {
    {"LaserOn",
     R"re(^\s*LaserOn\(\s*\"([^\"]+)\"\s*(?:,\s*((?:0|[1-9]\d{0,2}|[1-4]\d{3}|5000))\s*)?\);\s*(?://.*)?$)re"},
    {"LaserOff", R"(^\s*LaserOff\s*(?://.*)?$)"},
    {"LsWireFwd", R"(^\s*LsWireFwd\((\s*(?:-?\d+)\s*),(\s*(?:-?\d+)\s*)\);\s*(?://.*)?$)"},
    {"LsParaMatch", R"re(^\s*LsParaMatch\(\s*\"([^\"]+)\"\s*\);\s*(?://.*)?$)re"},
    {"Broken", "(["},
    {"MoveL", ""},
};

const Recogniser& recogniser()
{
    static const Recogniser theRecogniser = [] {
        QList<pendix::RlInstruction> instructions;
        for (const auto& [name, pattern] : kPatterns) {
            pendix::RlInstruction instruction;
            instruction.name = QLatin1String(name);
            instruction.pattern = QLatin1String(pattern);
            instruction.hasSpec = instruction.pattern.isEmpty();
            instructions.append(instruction);
        }
        return Recogniser(instructions);
    }();
    return theRecogniser;
}

/// Whether the program could be saved.
bool checkSaved(const QStringList& lines)
{
    const QString path = pathOf("saved");
    write(path, "old");
    const QString refusal = saveProgram(path, lines);
    if (!refusal.isEmpty()) {
        require(contentOf(path) == "old", "a program that is refused is written");
        return false;
    }
    FileFault fault;
    const std::optional<QStringList> again = loadProgram(path, &fault);
    require(again && *again == lines, "a program changes when it is saved and loaded again");
    return true;
}

void checkProgramFile(const QByteArray& bytes)
{
    const QString path = pathOf("program");
    write(path, bytes);
    FileFault fault;
    const std::optional<QStringList> lines = loadProgram(path, &fault);
    require(contentOf(path) == bytes, "reading a program changes it");
    if (!lines) {
        checkFault(fault, path, bytes);
        return;
    }
    require(checkSaved(*lines), "a program that was loaded can't be saved");
}

void checkLine(const QString& line)
{
    const InstructionLine parts = splitLine(line);
    require(parts.code + parts.comment == line, "a line is not the sum of its parts");
    require(parts.comment.isEmpty() || parts.comment.trimmed().startsWith(QLatin1String("//")),
            "a comment does not begin with two slashes");
    require(splitLine(parts.code).comment.isEmpty(), "the code of a line has a comment");
    const QString name = instructionName(line);
    require(name == name.trimmed() && parts.code.contains(name), "a name is not in the code");
    const pendix::RlInstruction* found = recogniser().find(line);
    if (found != nullptr) {
        require(!Recogniser::isBlank(line), "a line without code is recognised");
        require(recogniser().accepts(*found, line), "a recognised line is not accepted");
    }
}

bool isAllowed(const TemplateField& field, const QString& value)
{
    if (field.kind == TemplateField::Kind::Choice) {
        return field.items.contains(value);
    }
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    return isNumber && number >= field.minimum && number <= field.maximum;
}

/// The values of the line that the form makes now.
QStringList formValues(TemplateEditor& editor, const InstructionTemplate& instruction)
{
    const QString line = editor.ToString();
    require((lineFault(line).isEmpty() || line.size() > kLongestLine) && splitLine(line).comment.isEmpty(),
            "a form makes no proper line");
    const std::optional<QStringList> values = instruction.values(line);
    require(values && values->size() == instruction.fields().size(), "a form's own line has not its shape");
    for (int i = 0; i < values->size(); ++i) {
        require(isAllowed(instruction.fields().at(i), values->at(i)), "a form makes a value that is not allowed");
    }
    return *values;
}

QString anyAllowed(const TemplateField& field, Dice& dice)
{
    if (field.kind == TemplateField::Kind::Choice) {
        return dice.oneOf(field.items);
    }
    const qint64 numbers = qint64(field.maximum) - field.minimum + 1;
    return QString::number(field.minimum + dice.below(int(qMin<qint64>(numbers, 65536))));
}

void checkTemplate(const QString& text, const QString& foreign, Dice& dice)
{
    QString fault;
    const auto instruction = InstructionTemplate::parse(text, &fault);
    require(instruction.has_value() == fault.isEmpty(), "a template is refused without, or taken with a fault");
    require(!instruction || InstructionTemplate::isTemplate(text), "what has no field is taken for a template");
    if (!instruction) {
        return;
    }
    TemplateEditor editor(*instruction);
    formValues(editor, *instruction);
    QStringList values;
    for (const TemplateField& field : instruction->fields()) {
        values.append(anyAllowed(field, dice));
    }
    const QString line = instruction->line(values);
    require(instruction->values(line) == values, "values don't come back out of their line");
    editor.FillWith(line + QLatin1String(" // ") + foreign);
    require(editor.ToString() == line, "a form does not take the values of a line");
    editor.FillWith(foreign);
    const bool ofShape = instruction->values(splitLine(foreign).code).has_value();
    require(formValues(editor, *instruction) == values || ofShape, "a line of another shape changes a form");
}

QString anyArgument(bool number, Dice& dice)
{
    constexpr int kLimits[] = {
        0, 1, -1, 7, 100, 10000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    if (number) {
        const int first = kLimits[dice.below(int(std::size(kLimits)))];
        const int second = kLimits[dice.below(int(std::size(kLimits)))];
        // Rarely the wrong way round.
        const bool swapped = (first > second) != dice.oneIn(16);
        return QStringLiteral("%1,%2").arg(swapped ? second : first).arg(swapped ? first : second);
    }
    QStringList items;
    for (int left = dice.below(kMostItems); left >= 0; --left) {
        const QString item = anyText(dice);
        items.append(dice.oneIn(2) ? QLatin1Char('"') + item + QLatin1Char('"') : item);
    }
    return items.join(QLatin1Char('/'));
}

QString anyTemplate(Dice& dice)
{
    QString text = QStringLiteral("Instruction(");
    for (int left = dice.below(kMostFields); left >= 0; --left) {
        const bool number = dice.oneIn(2);
        const QStringList parts = {dice.oneIn(8) ? anyText(dice) : QStringLiteral("Label"),
                                   number ? QStringLiteral("spn") : QStringLiteral("cmb"), anyArgument(number, dice),
                                   QStringLiteral("true")};
        text += QLatin1Char('$') + parts.join(QLatin1Char('#')) + QLatin1Char('$');
        if (left > 0) {
            text += dice.oneIn(4) ? anyText(dice) : QStringLiteral(" , ");
        }
    }
    return text + (dice.oneIn(4) ? anyText(dice) : QStringLiteral(" );"));
}

void checkDecisions(Dice& dice)
{
    QStringList lines;
    for (int left = dice.below(kMostLines); left > 0; --left) {
        lines.append(anyText(dice));
        checkLine(lines.last());
    }
    checkSaved(lines);
    checkTemplate(anyTemplate(dice), QStringLiteral("Instruction(%1)").arg(anyText(dice)), dice);
}

void checkText(const QByteArray& bytes, Dice& dice)
{
    checkProgramFile(bytes);
    const QString text = QString::fromUtf8(bytes);
    checkLine(text);
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        checkLine(lines.at(i));
        // The line below a template is the one that its form is filled with.
        checkTemplate(lines.at(i), lines.value(i + 1), dice);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    startApplication();
    require(recogniser().faults().size() == 1, "a pattern that can't be used is not told of");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Input input(data, size);
    ByteDice dice = input.dice();
    if (input.holdsDecisions()) {
        checkDecisions(dice);
    } else {
        checkText(input.text(), dice);
    }
    return 0;
}
