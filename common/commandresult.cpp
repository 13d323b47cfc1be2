#include "common/commandresult.h"

#include "common/logline.h"
#include "common/names.h"
#include "common/operatormessage.h"
#include "common/truncate.h"

#include <QJsonObject>

namespace
{

QJsonObject pluginAnswers(const QJsonValue& element)
{
    return element.toObject().value(QLatin1String(names::kPlugin)).toObject();
}

QJsonValue firstReturn(const QJsonArray& result, const char* command)
{
    return pluginAnswers(result.at(0)).value(QLatin1String(command)).toObject().value(QLatin1String("return"));
}

} // namespace

std::optional<QJsonValue> findReturn(const QJsonArray& result, const QString& command)
{
    for (const QJsonValue& element : result) {
        const QJsonObject answer = pluginAnswers(element).value(command).toObject();
        const auto code = answer.constFind(QLatin1String("return"));
        if (code != answer.constEnd()) {
            return code.value();
        }
    }
    return std::nullopt;
}

int returnCode(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::String:
        return value.toString().toInt();
    case QJsonValue::Double:
        return truncatedToInt(value.toDouble());
    case QJsonValue::Bool:
        return value.toBool() ? 1 : 0;
    default:
        return 0;
    }
}

int extractReturnInt(const QJsonArray& result)
{
    return returnCode(firstReturn(result, names::command::kSetVirtualWelding));
}

bool parseJsonBool(const QJsonArray& result)
{
    return firstReturn(result, names::command::kSetWeldEnable).toBool(false);
}

Outcome outcomeOf(const QJsonArray& result, const QString& command)
{
    const std::optional<QJsonValue> answer = findReturn(result, command);
    if (!answer) {
        return {Outcome::Kind::Silent};
    }
    const int code = answer->toInt();
    return {code == 0 ? Outcome::Kind::Done : Outcome::Kind::Refused, code};
}

void reportOutcome(const Outcome& outcome, const OutcomeTexts& texts, const QString& command)
{
    switch (outcome.kind) {
    case Outcome::Kind::Done:
        tellOperator(pendix::information, texts.done);
        return;
    case Outcome::Kind::Refused:
        tellOperator(pendix::error, texts.failed);
        logLine(LogLevel::Error) << texts.log << command << " Result:" << outcome.code;
        return;
    case Outcome::Kind::Silent:
        logLine(LogLevel::Error) << texts.log + QLatin1String("not found ") << command << " Result";
        return;
    }
}
