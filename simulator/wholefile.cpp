#include "simulator/wholefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace sim
{

namespace
{

struct WholeFile {
    Q_DECLARE_TR_FUNCTIONS(sim::WholeFile)
};

QString unreadable(const QFile& file)
{
    return WholeFile::tr("can't be read: %1").arg(file.errorString());
}

} // namespace

std::optional<QByteArray> readWholeFile(const QString& path, FileFault* fault)
{
    const QFileInfo info(path);
    if (info.isDir()) {
        *fault = {path, 0, {}, WholeFile::tr("is a folder")};
        return std::nullopt;
    }
    // A pipe or a device could keep the reader waiting for ever.
    if (info.exists() && !info.isFile()) {
        *fault = {path, 0, {}, WholeFile::tr("is no regular file")};
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *fault = {path, 0, {}, unreadable(file)};
        return std::nullopt;
    }
    QByteArray bytes = file.read(kLargestFile + 1);
    if (file.error() != QFileDevice::NoError) {
        *fault = {path, 0, {}, unreadable(file)};
        return std::nullopt;
    }
    if (bytes.size() > kLargestFile) {
        *fault = {path, 0, {}, WholeFile::tr("is larger than 16 MiB")};
        return std::nullopt;
    }
    if (bytes.startsWith(kByteOrderMark)) {
        bytes.remove(0, int(qstrlen(kByteOrderMark)));
    }
    return bytes;
}

QString writeWholeFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    // A full disk takes a part first; why it takes no more comes to light with the rest.
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 part = file.write(bytes.constData() + written, bytes.size() - written);
        if (part <= 0) {
            return file.errorString();
        }
        written += part;
    }
    return file.commit() ? QString() : file.errorString();
}

} // namespace sim
