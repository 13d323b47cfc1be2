#ifndef CHECKS_FUZZ_FILECHECK_H
#define CHECKS_FUZZ_FILECHECK_H

#include "simulator/filefault.h"

#include <QByteArray>
#include <QString>

namespace fuzz
{

/// The path of a file in a folder that is there as long as the process.
QString pathOf(const char* name);

/// Whole files; one that can't be written or read ends the process.
void write(const QString& path, const QByteArray& bytes);
QByteArray contentOf(const QString& path);

/// Whether a file with these bytes was refused in words, with its name, and at a line that it has.
void checkFault(const sim::FileFault& fault, const QString& path, const QByteArray& bytes);

} // namespace fuzz

#endif
