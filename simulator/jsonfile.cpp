#include "simulator/jsonfile.h"

#include "simulator/wholefile.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <algorithm>

namespace sim
{

namespace
{

QString words(const char* text)
{
    return QCoreApplication::translate("sim::JsonFile", text);
}

int lineAt(const QByteArray& text, int offset)
{
    return 1 + static_cast<int>(std::count(text.cbegin(), text.cbegin() + std::clamp(offset, 0, text.size()), '\n'));
}

} // namespace

std::optional<QJsonObject> readJsonFile(const QString& path, FileFault* fault)
{
    const std::optional<QByteArray> text = readWholeFile(path, fault);
    if (!text) {
        return std::nullopt;
    }
    if (text->trimmed().isEmpty()) {
        *fault = {path, 1, {}, words("the file is empty")};
        return std::nullopt;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(*text, &error);
    if (error.error != QJsonParseError::NoError) {
        *fault = {path, lineAt(*text, error.offset), {}, words("not JSON: %1").arg(error.errorString())};
        return std::nullopt;
    }
    if (!document.isObject()) {
        *fault = {path, 1, {}, words("expected an object")};
        return std::nullopt;
    }
    return document.object();
}

} // namespace sim
