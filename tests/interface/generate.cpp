// docs_generator FROM TO: reads FROM/integrator-guide.md and writes it with its tables brought up to date to TO, and
// all schemas to TO/schema. The two folders may be the same one.

#include "tests/fakehost.h"
#include "tests/interface/guide.h"
#include "tests/interface/schemas.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTextStream>

namespace
{

constexpr char kGuide[] = "/integrator-guide.md";

QString read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
    return QString::fromUtf8(file.readAll());
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
    const QString guide = withSections(read(arguments.at(1) + QLatin1String(kGuide)), guideSections(forms), &fault);
    if (!fault.isEmpty()) {
        QTextStream(stderr) << arguments.at(1) << kGuide << ": " << fault << '\n';
        return 1;
    }
    const QString schemaFolder = arguments.at(2) + QLatin1String("/schema/");
    clearFolder(schemaFolder);
    const QMap<QString, QJsonObject> schemas = interfaceSchemas(forms);
    for (auto schema = schemas.begin(); schema != schemas.end(); ++schema) {
        write(schemaFolder + schema.key() + QLatin1String(".schema.json"), QJsonDocument(schema.value()).toJson());
    }
    write(arguments.at(2) + QLatin1String(kGuide), guide.toUtf8());
    return 0;
}
