#ifndef SIMULATOR_PROGRAM_PROGRAMFILE_H
#define SIMULATOR_PROGRAM_PROGRAMFILE_H

#include "simulator/filefault.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace sim
{

/// A robot program on disk: one instruction per line, in UTF-8. What is saved loads the same.

/// Reads a regular file of at most 16 MiB. Lines end with LF or CR LF (saving writes LF), the last one needs no end; an
/// empty file is a program without lines. A file that can't be read, or with a line that is no UTF-8 or has a
/// lineFault(), yields nothing and fills fault.
std::optional<QStringList> loadProgram(const QString& path, FileFault* fault);

/// Replaces the file as a whole. Returns why it could not be written, empty when it was. A line with a lineFault()
/// and a program too large to be loaded again are refused, and the file stays as it is.
QString saveProgram(const QString& path, const QStringList& lines);

} // namespace sim

#endif
