#ifndef COMMON_REGISTERFILTER_H
#define COMMON_REGISTERFILTER_H

#include <QJsonValue>
#include <QString>
#include <QStringList>

/// The rules by which register metadata (an array of objects, one per register) is read. Controllers name
/// the members differently, so each field has several keys; the first non-empty one counts.
namespace registerfilter
{

/// Names of the registers whose type is in types and whose access passes rw, in metadata order, duplicates
/// included. rw: "r", "read", "rd" or "ro" for read-only registers; "w", "write", "wr" or "wo" for all that
/// can be written; anything else, empty included, for no access filter. Types and access words are compared
/// trimmed and in lower case. Metadata that is no array, or in which no register has name, type and access,
/// is reported by a Qt warning.
QStringList filter(const QJsonValue& metadata, const QStringList& types, const QString& rw);

/// Element count ("len", at least 1) of the register of that exact name; defaultLen when the register or
/// its length is not to be found.
int length(const QJsonValue& metadata, const QString& name, int defaultLen);

} // namespace registerfilter

#endif
