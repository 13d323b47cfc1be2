// What a controller answers to a command, through every reader of such an answer. An input is the answer as JSON
// text, or decisions that take a sound answer apart.
#include "checks/fuzz/input.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "common/commandresult.h"
#include "common/controller.h"
#include "common/names.h"
#include "tests/fakehost.h"

#include <cmath>
#include <limits>

using namespace fuzz;

namespace
{

constexpr char kPage[] = "AnyPage";
constexpr char kSaved[] = "Saved successfully";
constexpr char kFailed[] = "Save failed. Please check the parameter configuration.";

const QStringList& commands()
{
    static const QStringList names = {QLatin1String(names::command::kSetWeldSetting),
                                      QLatin1String(names::command::kSetWeldEnable),
                                      QLatin1String(names::command::kSetVirtualWelding)};
    return names;
}

/// What a save told: the operator through the messages, developers through the log.
struct Report {
    QVector<FakeHost::Message> messages;
    int errorLines = 0;

    bool saved() const { return !messages.isEmpty() && messages.first().text == QLatin1String(kSaved); }
    bool operator==(const Report& other) const
    {
        return messages.size() == other.messages.size() && saved() == other.saved() && errorLines == other.errorLines;
    }
};

Report reportOf(FakeHost& host, const QJsonArray& answer, const QString& command)
{
    host.forget();
    reportOutcome(outcomeOf(answer, command), {QLatin1String(kSaved), QLatin1String(kFailed), QLatin1String(kPage)},
                  command);
    Report report{host.messages, 0};
    for (const pendix::LogStatement& line : qAsConst(host.logs)) {
        if (line.tag.startsWith(QLatin1String("[E|"))) {
            const QString text = line.items.join(QLatin1Char(' '));
            require(text.contains(QLatin1String(kPage)) && text.contains(command), "an error line names no culprit");
            ++report.errorLines;
        }
    }
    return report;
}

/// Every value under "return", however deep.
void collectReturns(const QJsonValue& value, QJsonArray* codes)
{
    const QJsonObject object = value.toObject();
    for (auto member = object.constBegin(); member != object.constEnd(); ++member) {
        if (member.key() == QLatin1String("return")) {
            codes->append(member.value());
        }
        collectReturns(member.value(), codes);
    }
    const QJsonArray array = value.toArray();
    for (const QJsonValue element : array) {
        collectReturns(element, codes);
    }
}

bool isFailureCode(const QJsonValue& code)
{
    return code.isDouble() && code.toInt(0) != 0;
}

void checkMessages(const Report& report)
{
    require(report.messages.size() <= 1, "a save is reported twice");
    for (const FakeHost::Message& message : report.messages) {
        const bool good = message.level == pendix::information && message.text == QLatin1String(kSaved);
        const bool bad = message.level == pendix::error && message.text == QLatin1String(kFailed);
        require(good || bad, "a save is reported in other words, or at another level");
    }
    require(report.saved() || report.errorLines > 0, "a failed save leaves no error line");
    require(!report.saved() || report.errorLines == 0, "a save is reported as done, and logged as failed");
}

/// Success is reported only if there is a code that may mean it.
void checkSuccess(const Report& report, const QJsonArray& answer)
{
    QJsonArray codes;
    collectReturns(answer, &codes);
    require(!codes.isEmpty() || report.messages.isEmpty(), "the operator is told about an answer that never came");
    require(!report.saved() || !std::all_of(codes.begin(), codes.end(), isFailureCode),
            "every code is a failure, and the operator is told that the save was done");
}

/// The first element that answers counts, wherever it stands; the readers of the first element look no further.
void checkPlaces(FakeHost& host, const QJsonArray& answer, const QString& command, const Report& report)
{
    const QJsonArray success = FakeHost::answer(command, 0);
    const QJsonArray failure = FakeHost::answer(command, 7);
    QJsonArray behind = answer;
    behind.append(report.saved() ? failure.first() : success.first());
    QJsonArray before = answer;
    before.prepend(FakeHost::answer(QStringLiteral("get_anything"), report.saved() ? 7 : 0).first());
    if (findReturn(answer, command)) {
        require(reportOf(host, behind, command) == report, "an element behind the answer changes what is reported");
    }
    require(reportOf(host, before, command) == report, "another command's answer changes what is reported");

    require(extractReturnInt(before) == 0, "a code is read from the second element");
    require(!parseJsonBool(before), "welding is taken as enabled by the second element");
    if (!answer.isEmpty()) {
        require(extractReturnInt(behind) == extractReturnInt(answer), "a later element changes the code");
        require(parseJsonBool(behind) == parseJsonBool(answer), "a later element changes whether welding is enabled");
    }
}

/// Welding counts as enabled only if the controller says true itself.
void checkEnable(const QJsonArray& answer)
{
    QJsonArray codes;
    collectReturns(answer, &codes);
    require(!parseJsonBool(answer) || codes.contains(true), "welding is taken as enabled without a true");
}

void checkCode(const QJsonValue& code)
{
    const int read = returnCode(code);
    if (code.isDouble()) {
        const double number = code.toDouble();
        const bool beyond = std::abs(number) > std::numeric_limits<int>::max();
        require(std::abs(double(read)) <= std::abs(number) && (beyond || std::abs(number - read) < 1),
                "a number is not truncated toward zero");
        require(read == 0 || (read > 0) == (number > 0), "a code changes its sign");
    }
    require(!(code.isObject() || code.isArray() || code.isNull()) || read == 0, "a container reads as a code");
}

void checkAnswer(FakeHost& host, const QJsonArray& answer, const QString& command)
{
    // The answer comes as it does in a pendant, by both forms of a command.
    host.answers = {{command, answer}};
    require(controller::sendCommand(&host, QJsonObject{{command, 1}}) == answer, "an answer changes on its way");
    require(controller::sendCommand(&host, command, QStringLiteral("TRUE")) == answer, "an answer changes on its way");
    const Report report = reportOf(host, answer, command);
    checkMessages(report);
    checkSuccess(report, answer);
    checkPlaces(host, answer, command, report);
}

/// A controller's proper answer, alone or behind another command's, taken apart.
QJsonArray scrambledAnswer(Dice& dice, const QString& command)
{
    QJsonArray answer;
    if (dice.oneIn(3)) {
        answer.append(FakeHost::answer(dice.oneOf(commands()), dice.below(3)).first());
    }
    QJsonValue code = dice.below(3);
    if (dice.oneIn(4)) {
        code = anyValue(dice);
    }
    answer.append(FakeHost::answer(command, code).first());
    return scrambled(answer, dice).toArray();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FakeHost host;
    const Input input(data, size);
    ByteDice dice = input.dice();
    const QJsonArray text = input.json().toArray();
    for (const QString& command : commands()) {
        const QJsonArray answer = input.holdsDecisions() ? scrambledAnswer(dice, command) : text;
        checkAnswer(host, answer, command);
        checkEnable(answer);
        QJsonArray codes;
        collectReturns(answer, &codes);
        for (const QJsonValue code : qAsConst(codes)) {
            checkCode(code);
        }
    }
    return 0;
}
