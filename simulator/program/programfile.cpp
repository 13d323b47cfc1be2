#include "simulator/program/programfile.h"

#include "simulator/program/instructionline.h"
#include "simulator/wholefile.h"

#include <QCoreApplication>
#include <QTextCodec>

namespace sim
{

namespace
{

/// Nothing for bytes that are no UTF-8.
std::optional<QString> decoded(const char* bytes, int size)
{
    static const QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    // The file's byte order mark is gone already; a character of that value is part of the line.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = codec->toUnicode(bytes, size, &state);
    if (state.invalidChars > 0 || state.remainingChars > 0) {
        return std::nullopt;
    }
    return text;
}

} // namespace

std::optional<QStringList> loadProgram(const QString& path, FileFault* fault)
{
    const std::optional<QByteArray> bytes = readWholeFile(path, fault);
    if (!bytes) {
        return std::nullopt;
    }
    QStringList lines;
    for (int begin = 0, next = 0; begin < bytes->size(); begin = next) {
        const int lineFeed = bytes->indexOf('\n', begin);
        int end = lineFeed < 0 ? bytes->size() : lineFeed;
        next = end + 1;
        if (lineFeed > begin && bytes->at(lineFeed - 1) == '\r') {
            --end;
        }
        const std::optional<QString> line = decoded(bytes->constData() + begin, end - begin);
        const QString wrong =
            line ? lineFault(*line) : QCoreApplication::translate("sim::ProgramFile", "is not in UTF-8");
        if (!wrong.isEmpty()) {
            *fault = {path, lines.size() + 1, {}, wrong};
            return std::nullopt;
        }
        lines.append(*line);
    }
    return lines;
}

QString saveProgram(const QString& path, const QStringList& lines)
{
    QByteArray bytes;
    for (int i = 0; i < lines.size(); ++i) {
        const QString wrong = lineFault(lines.at(i));
        if (!wrong.isEmpty()) {
            return QCoreApplication::translate("sim::ProgramFile", "line %1: %2").arg(QString::number(i + 1), wrong);
        }
        bytes += lines.at(i).toUtf8() + '\n';
    }
    // Only the first mark is left out on reading, so a program that begins with that very character gets another one.
    if (bytes.startsWith(kByteOrderMark)) {
        bytes.prepend(kByteOrderMark);
    }
    if (bytes.size() > kLargestFile) {
        return QCoreApplication::translate("sim::ProgramFile", "the program is larger than 16 MiB");
    }
    return writeWholeFile(path, bytes);
}

} // namespace sim
