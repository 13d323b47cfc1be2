#ifndef COMMON_REGISTERFILTER_H
#define COMMON_REGISTERFILTER_H

#include <QHash>
#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <QVector>

/// The rules by which register metadata (an array of objects, one per register) is read. Controllers name
/// the members differently, so each field has several keys; the first non-empty one counts.
namespace registerfilter
{

/// The type names that controllers use for one kind of value. Numeric ones are the integer and the float ones.
const QStringList& boolTypes();
const QStringList& integerTypes();
const QStringList& floatTypes();
const QStringList& numericTypes();

constexpr char kReadable[] = "r"; ///< access of registers that can only be read
constexpr char kWritable[] = "w"; ///< access of registers that can be written, or written and read

/// Which registers are asked for. rw: "r", "read", "rd" or "ro" for read-only registers; "w", "write", "wr" or "wo"
/// for all that can be written; anything else, empty included, for no access filter. Types and access words are
/// compared trimmed and in lower case.
struct Query {
    QStringList types;
    QString rw;
};

/// Names of the registers whose type is in types and whose access passes rw, in metadata order, duplicates
/// included. Metadata that is no array, or in which no register has name, type and access, is reported by a Qt
/// warning.
QStringList filter(const QJsonValue& metadata, const QStringList& types, const QString& rw);

/// The same for several queries in one pass over the metadata: a list for each query, in their order.
QVector<QStringList> filter(const QJsonValue& metadata, const QVector<Query>& queries);

/// Element count ("len", at least 1) of the register of that exact name; defaultLen when the register or
/// its length is not to be found.
int length(const QJsonValue& metadata, const QString& name, int defaultLen);

/// The element count, at least 1, of every register that the member "name" gives a name, trimmed; the first register
/// of a name counts, and a "len" that is no whole number is 1. Empty when the metadata is no array.
QHash<QString, int> lengths(const QJsonValue& metadata);

} // namespace registerfilter

#endif
