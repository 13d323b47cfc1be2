#ifndef COMMON_MJSON_H
#define COMMON_MJSON_H

#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

/// The catalogue of the controller's I/O signals and registers as the pages' drop-down lists need it, and
/// small JSON accessors. Every call asks the host anew; missing or malformed host data gives empty lists. I/O signals
/// that the host gives unchanged are not sorted again.
namespace mJson
{

/// I/O signals of one type in natural order.
QStringList GetDO();
QStringList GetDI();
QStringList GetAO();
QStringList GetAI();
QStringList GetGO();
QStringList GetGI();

/// All registers in natural order.
QStringList GetREG();

/// Registers whose type is one of types and whose access passes rw: "r" (read-only ones), "w" (everything
/// that can be written) or empty for no access filter. No duplicates, natural order.
QStringList GetREGByTypes(const QStringList& types, const QString& rw);
QStringList GetREGByTypes(const QStringList& types);

/// Registers by kind of value. Numeric is Integer and Float together.
QStringList GetREGBool();
QStringList GetREGBoolWritable();
QStringList GetREGBoolReadable();
QStringList GetREGInteger();
QStringList GetREGIntegerWritable();
QStringList GetREGIntegerReadable();
QStringList GetREGFloat();
QStringList GetREGFloatWritable();
QStringList GetREGFloatReadable();
QStringList GetREGNumeric();
QStringList GetREGNumericWritable();
QStringList GetREGNumericReadable();

/// Element count of a register, at least 1; defaultLen when the controller does not tell.
int GetRegisterLen(const QString& name, int defaultLen);

/// A sorted copy in natural order: DO2 before DO10. See common/naturalorder.h.
QStringList naturalSort(const QStringList& list);

/// Member of an object; null when v is no object. A missing member is undefined.
QJsonValue getSubValue(const QJsonValue& v, const QString& key);
bool hasSubValue(const QJsonValue& v, const QString& key);

/// Array member of an object; empty when v is no object or the member no array.
QJsonArray getSubArray(const QJsonValue& v, const QString& key);
bool hasSubArray(const QJsonValue& v, const QString& key);

} // namespace mJson

#endif
