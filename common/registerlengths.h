#ifndef COMMON_REGISTERLENGTHS_H
#define COMMON_REGISTERLENGTHS_H

#include <QJsonValue>
#include <QString>

/// How many elements each of the controller's registers has: one table for all pages of the process, so that asking
/// for a length costs no host call. Whoever reads the register metadata renews it.
namespace registerlengths
{

/// Replaces the table by that of the metadata just read; by an empty one when that is no array.
void renew(const QJsonValue& metadata);

/// Element count of the register of that exact name, at least 1; 1 when it is not known.
int lengthOf(const QString& name);

} // namespace registerlengths

#endif
