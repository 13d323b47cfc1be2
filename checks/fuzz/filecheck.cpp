#include "checks/fuzz/filecheck.h"

#include "checks/fuzz/require.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace fuzz
{

namespace
{

/// Lines as an editor counts them: each ends with a line feed, a carriage return or both.
int linesIn(const QByteArray& bytes)
{
    return 1 + bytes.count('\n') + bytes.count('\r') - bytes.count("\r\n");
}

} // namespace

QString pathOf(const char* name)
{
    static const QTemporaryDir folder;
    require(folder.isValid(), "there is no room for temporary files");
    return folder.filePath(QLatin1String(name));
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush(),
            "a temporary file can't be written");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "a file is gone after it was read");
    return file.readAll();
}

void checkFault(const sim::FileFault& fault, const QString& path, const QByteArray& bytes)
{
    require(!fault.text.isEmpty(), "a file is refused without a reason");
    require(fault.file == path && fault.message().startsWith(path), "a refusal does not name the file");
    require(fault.line >= 0 && fault.line <= linesIn(bytes), "a fault is on a line that the file does not have");
    const QString message = fault.message();
    require(std::none_of(message.begin(), message.end(), [](QChar c) { return c.category() == QChar::Other_Control; }),
            "a message has control characters");
}

} // namespace fuzz
