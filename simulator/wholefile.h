#ifndef SIMULATOR_WHOLEFILE_H
#define SIMULATOR_WHOLEFILE_H

#include "simulator/filefault.h"

#include <QByteArray>

#include <optional>

namespace sim
{

/// The largest file that is read: 16 MiB.
constexpr qint64 kLargestFile = 16LL * 1024 * 1024;

/// What some editors put in front of a text in UTF-8.
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

/// Reads a regular file of at most kLargestFile, also through links; one byte order mark at its beginning is left
/// out. A file that can't be read yields nothing and fills fault.
std::optional<QByteArray> readWholeFile(const QString& path, FileFault* fault);

/// Replaces a file as a whole: whoever reads it finds the old content or the new one. Returns why it could not be
/// written, empty when it was.
QString writeWholeFile(const QString& path, const QByteArray& bytes);

} // namespace sim

#endif
