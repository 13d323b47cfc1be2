#include "simulator/jsonfile.h"

#include "simulator/wholefile.h"

#include <QJsonDocument>
#include <QRegularExpression>

#include <json/json.h>

#include <algorithm>
#include <memory>

namespace sim
{

namespace
{

/// Qt's reader gives the values but neither their places nor duplicate members; this one gives both.
/// Its text must already have passed Qt's reader, which bounds the nesting at 1024 levels.
bool locate(const QByteArray& text, Json::Value* root, std::string* errors)
{
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["stackLimit"] = 1100;
    builder["collectComments"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    try {
        return reader->parse(text.constData(), text.constData() + text.size(), root, errors);
    } catch (const Json::Exception& exception) {
        *errors = exception.what();
        return false;
    }
}

int lineAt(const QByteArray& text, qint64 offset)
{
    const auto end = text.cbegin() + std::clamp<qint64>(offset, 0, text.size());
    return 1 + static_cast<int>(std::count(text.cbegin(), end, '\n'));
}

const Json::Value* child(const Json::Value& parent, const QVariant& step)
{
    if (step.type() == QVariant::Int) {
        const auto position = static_cast<Json::ArrayIndex>(step.toInt());
        return parent.isArray() && parent.isValidIndex(position) ? &parent[position] : nullptr;
    }
    const QByteArray key = step.toString().toUtf8();
    return parent.isObject() ? parent.find(key.constData(), key.constData() + key.size()) : nullptr;
}

FileFault syntaxFault(const QString& path, int line, const QString& words)
{
    return {path, line, {}, JsonFile::tr("not JSON: %1").arg(words)};
}

/// The first complaint of the locating reader: "* Line 3, Column 5\n  Duplicate key: 'x'\n". A key in it may have
/// line breaks of its own.
FileFault readerFault(const QString& path, const std::string& errors)
{
    static const QRegularExpression pattern(
        QStringLiteral("Line (\\d+), Column \\d+\n  (.*?)\n(?:\\* Line|See Line|\\z)"),
        QRegularExpression::DotMatchesEverythingOption);
    const QString all = QString::fromStdString(errors);
    const QRegularExpressionMatch match = pattern.match(all);
    if (!match.hasMatch()) {
        return syntaxFault(path, 0, all.simplified());
    }
    const QString words = match.captured(2);
    return syntaxFault(path, match.captured(1).toInt(), words.left(1).toLower() + words.mid(1));
}

} // namespace

JsonPath JsonPath::operator/(const QString& member) const
{
    JsonPath path = *this;
    path.m_steps.append(member);
    return path;
}

JsonPath JsonPath::operator/(int position) const
{
    JsonPath path = *this;
    path.m_steps.append(position);
    return path;
}

QString JsonPath::toString() const
{
    static const QRegularExpression plain(QRegularExpression::anchoredPattern(QStringLiteral("\\w+")));
    QString text;
    for (const QVariant& step : m_steps) {
        const QString name = step.toString();
        if (step.type() == QVariant::Int) {
            text += QLatin1Char('[') + name + QLatin1Char(']');
        } else if (plain.match(name).hasMatch()) {
            text += text.isEmpty() ? name : QLatin1Char('.') + name;
        } else {
            text += QLatin1String("[\"") + name + QLatin1String("\"]");
        }
    }
    return text;
}

std::optional<JsonFile> JsonFile::read(const QString& path, FileFault* fault)
{
    const std::optional<QByteArray> text = readWholeFile(path, fault);
    if (!text) {
        return std::nullopt;
    }
    if (text->trimmed().isEmpty()) {
        *fault = {path, 1, {}, tr("the file is empty")};
        return std::nullopt;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(*text, &error);
    if (error.error != QJsonParseError::NoError) {
        *fault = syntaxFault(path, lineAt(*text, error.offset), error.errorString());
        return std::nullopt;
    }
    Json::Value located;
    std::string errors;
    if (!locate(*text, &located, &errors)) {
        *fault = readerFault(path, errors);
        return std::nullopt;
    }
    if (!document.isObject()) {
        *fault = {path, 1, {}, tr("expected an object")};
        return std::nullopt;
    }
    JsonFile file;
    file.m_path = path;
    file.m_text = *text;
    file.m_root = document.object();
    return file;
}

FileFault JsonFile::faultAt(const JsonPath& path, const QString& text) const
{
    Json::Value root;
    std::string errors;
    locate(m_text, &root, &errors);
    const Json::Value* value = &root;
    for (const QVariant& step : path.steps()) {
        const Json::Value* next = child(*value, step);
        if (next == nullptr) {
            break;
        }
        value = next;
    }
    return {m_path, lineAt(m_text, value->getOffsetStart()), path.toString(), text};
}

} // namespace sim
