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
    const bool isOpen = file.open(QIODevice::ReadOnly);
    QByteArray bytes = isOpen ? file.read(kLargestFile + 1) : QByteArray();
    if (!isOpen || file.error() != QFileDevice::NoError) {
        *fault = {path, 0, {}, WholeFile::tr("can't be read: %1").arg(file.errorString())};
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
