#include "simulator/answerplan.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <limits>

namespace sim
{

namespace
{

struct KindRow {
    AnswerKind kind;
    const char* label;
    bool acts;
};

constexpr KindRow kKinds[] = {
    {AnswerKind::Proper, QT_TRANSLATE_NOOP("sim::AnswerPlan", "as it should"), true},
    {AnswerKind::NumberZero, QT_TRANSLATE_NOOP("sim::AnswerPlan", "number 0"), true},
    {AnswerKind::OtherNumber, QT_TRANSLATE_NOOP("sim::AnswerPlan", "number 7"), false},
    {AnswerKind::TextTwo, QT_TRANSLATE_NOOP("sim::AnswerPlan", "text \"2\""), false},
    {AnswerKind::True, QT_TRANSLATE_NOOP("sim::AnswerPlan", "boolean true"), true},
    {AnswerKind::False, QT_TRANSLATE_NOOP("sim::AnswerPlan", "boolean false"), false},
    {AnswerKind::Empty, QT_TRANSLATE_NOOP("sim::AnswerPlan", "empty array"), false},
    {AnswerKind::OtherFirst, QT_TRANSLATE_NOOP("sim::AnswerPlan", "another command's answer first"), true},
    {AnswerKind::TwoAnswers, QT_TRANSLATE_NOOP("sim::AnswerPlan", "a different answer first"), true},
    {AnswerKind::NoMembers, QT_TRANSLATE_NOOP("sim::AnswerPlan", "answer without members"), false},
    {AnswerKind::Huge, QT_TRANSLATE_NOOP("sim::AnswerPlan", "huge numbers"), false},
    {AnswerKind::Malformed, QT_TRANSLATE_NOOP("sim::AnswerPlan", "malformed elements"), false},
};

constexpr int kRefusal = 7;
constexpr int kHugeCode = std::numeric_limits<int>::max();
constexpr double kHugeNumber = 1e300;

const KindRow& rowOf(AnswerKind kind)
{
    for (const KindRow& row : kKinds) {
        if (row.kind == kind) {
            return row;
        }
    }
    return kKinds[0];
}

QJsonObject element(const QString& plugin, const QString& command, const QJsonValue& code, QJsonObject answer = {})
{
    answer.insert(QStringLiteral("return"), code);
    return {{plugin, QJsonObject{{command, answer}}}};
}

/// Plainly not the proper numbers.
QJsonObject different(QJsonObject numbers)
{
    for (QJsonValueRef number : numbers) {
        number = 2 * number.toDouble() + 1;
    }
    return numbers;
}

/// Numbers that alternate in sign: an intercept and a slope contradict each other.
QJsonObject huge(QJsonObject numbers)
{
    double next = -kHugeNumber;
    for (QJsonValueRef number : numbers) {
        number = next;
        next = -next;
    }
    return numbers;
}

QJsonArray malformed(const QString& plugin, const QString& command)
{
    return {7, QStringLiteral("text"), QJsonObject{{plugin, 5}}, QJsonObject{{plugin, QJsonObject{{command, 3}}}},
            QJsonObject{{plugin, QJsonObject{{command, QJsonObject{{QStringLiteral("result"), 0}}}}}}};
}

} // namespace

QList<AnswerKind> answerKinds()
{
    QList<AnswerKind> kinds;
    for (const KindRow& row : kKinds) {
        kinds.append(row.kind);
    }
    return kinds;
}

QString answerLabel(AnswerKind kind)
{
    return QCoreApplication::translate("sim::AnswerPlan", rowOf(kind).label);
}

bool controllerActs(AnswerKind kind)
{
    return rowOf(kind).acts;
}

QJsonArray shapeAnswer(AnswerKind kind, const QString& plugin, const QString& command, const QJsonValue& properCode,
                       const QJsonObject& details)
{
    // Of a command that says nothing beside its code, the code is what goes wrong.
    const auto wrong = [&](int code, const QJsonObject& numbers) {
        return element(plugin, command, details.isEmpty() ? QJsonValue(code) : properCode, numbers);
    };
    switch (kind) {
    case AnswerKind::NumberZero:
        return {element(plugin, command, 0)};
    case AnswerKind::OtherNumber:
        return {element(plugin, command, kRefusal)};
    case AnswerKind::TextTwo:
        return {element(plugin, command, QStringLiteral("2"))};
    case AnswerKind::True:
        return {element(plugin, command, true)};
    case AnswerKind::False:
        return {element(plugin, command, false)};
    case AnswerKind::Empty:
        return {};
    case AnswerKind::OtherFirst:
        return {element(plugin, QStringLiteral("get_weld_status"), 1), element(plugin, command, properCode, details)};
    case AnswerKind::TwoAnswers:
        return {wrong(kRefusal, different(details)), element(plugin, command, properCode, details)};
    case AnswerKind::NoMembers:
        return {element(plugin, command, QJsonValue::Undefined)};
    case AnswerKind::Huge:
        return {wrong(kHugeCode, huge(details))};
    case AnswerKind::Malformed:
        return malformed(plugin, command);
    case AnswerKind::Proper:
        break;
    }
    return {element(plugin, command, properCode, details)};
}

} // namespace sim
