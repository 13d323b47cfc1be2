// docs_generator FROM TO: reads FROM/integrator-guide.md and writes it with its tables brought up to date to TO, and
// all schemas to TO/schema. The two folders may be the same one.

#include "docs/generator/guide.h"
#include "docs/generator/schemas.h"
#include "tests/fakehost.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTextStream>

namespace
{

constexpr char kGuide[] = "/integrator-guide.md";

constexpr char kSchemaFolder[] = "/schema/";
constexpr char kSchemaEnding[] = ".schema.json";

/// Nodes and commands of pages that are still to come. Their schemas are written by hand and left as they are; who
/// builds a page takes its names off this list, and what is then generated should be what stands there already.
constexpr const char* kNotYetGenerated[] = {
    "weld_param_config",
    "set_weld_param_list_config",
    "weld_param_match",
    "set_weld_param_match_config",
};

QByteArray read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
    return file.readAll();
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
}

/// An empty folder for what is generated as a whole: nothing from before is left behind.
void clearFolder(const QString& path)
{
    QDir folder(path);
    const QStringList former = folder.entryList({"*.schema.json"}, QDir::Files);
    for (const QString& name : former) {
        folder.remove(name);
    }
    folder.mkpath(QStringLiteral("."));
}

QString schemaPath(const QString& docs, const QString& name)
{
    return docs + QLatin1String(kSchemaFolder) + name + QLatin1String(kSchemaEnding);
}

/// What the result array's schema says of the answers to commands that are not generated yet.
QJsonObject keptAnswers(const QString& docs)
{
    const QJsonDocument result = QJsonDocument::fromJson(read(schemaPath(docs, QStringLiteral("result"))));
    const QJsonObject answers = result["items"]["properties"][QLatin1String(names::kPlugin)]["properties"].toObject();
    QJsonObject kept;
    for (const char* name : kNotYetGenerated) {
        if (answers.contains(QLatin1String(name))) {
            kept.insert(QLatin1String(name), answers.value(QLatin1String(name)));
        }
    }
    return kept;
}

/// All schemas as they are written to files, by name.
QMap<QString, QByteArray> schemaTexts(const QString& docs, const QVector<NodeForm>& forms)
{
    QMap<QString, QByteArray> texts;
    const QMap<QString, QJsonObject> schemas = interfaceSchemas(forms, keptAnswers(docs));
    for (auto schema = schemas.begin(); schema != schemas.end(); ++schema) {
        texts.insert(schema.key(), QJsonDocument(schema.value()).toJson());
    }
    for (const char* name : kNotYetGenerated) {
        if (texts.contains(name)) {
            qFatal("%s is generated now: take it off the list in docs/generator/generate.cpp", name);
        }
        texts.insert(name, read(schemaPath(docs, name)));
    }
    return texts;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        QTextStream(stderr) << "docs_generator FROM TO\n";
        return 2;
    }
    const FakeHost host;
    const QVector<NodeForm> forms = nodeForms();
    QString fault;
    const QString guide =
        withSections(QString::fromUtf8(read(arguments.at(1) + QLatin1String(kGuide))), guideSections(forms), &fault);
    if (!fault.isEmpty()) {
        QTextStream(stderr) << arguments.at(1) << kGuide << ": " << fault << '\n';
        return 1;
    }
    const QMap<QString, QByteArray> schemas = schemaTexts(arguments.at(1), forms);
    clearFolder(arguments.at(2) + QLatin1String(kSchemaFolder));
    for (auto schema = schemas.begin(); schema != schemas.end(); ++schema) {
        write(schemaPath(arguments.at(2), schema.key()), schema.value());
    }
    write(arguments.at(2) + QLatin1String(kGuide), guide.toUtf8());
    return 0;
}
