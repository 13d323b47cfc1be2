#include "simulator/statefile.h"

#include "simulator/jsoncheck.h"
#include "simulator/nodeschema.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace sim
{

namespace
{
constexpr char kNodes[] = "nodes";
}

std::optional<QJsonObject> loadState(const QString& path, FileFault* fault)
{
    // A link that leads nowhere is no file either: the first save creates its target.
    if (!QFileInfo::exists(path)) {
        return QJsonObject();
    }
    const std::optional<JsonFile> file = JsonFile::read(path, fault);
    if (!file) {
        return std::nullopt;
    }
    const QString nodes = QLatin1String(kNodes);
    const JsonPath top;
    JsonCheck check;
    check.members(file->root(), top, {nodes});
    QJsonObject result = checkNodes(check, file->root().value(nodes), top / nodes);
    if (check.fault()) {
        *fault = file->faultAt(check.fault()->path, check.fault()->text);
        return std::nullopt;
    }
    return result;
}

QString saveState(const QString& path, const QJsonObject& nodes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    const QByteArray text = QJsonDocument(QJsonObject{{QLatin1String(kNodes), nodes}}).toJson();
    // A full disk takes a part first; why it takes no more comes to light with the rest.
    qint64 written = 0;
    while (written < text.size()) {
        const qint64 part = file.write(text.constData() + written, text.size() - written);
        if (part <= 0) {
            return file.errorString();
        }
        written += part;
    }
    return file.commit() ? QString() : file.errorString();
}

} // namespace sim
