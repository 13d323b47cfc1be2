#ifndef SIMULATOR_REGISTERLIST_H
#define SIMULATOR_REGISTERLIST_H

#include "simulator/namecheck.h"

#include <QJsonArray>

namespace sim
{

/// Members of a register.
namespace registermember
{
constexpr char kName[] = "name";
constexpr char kType[] = "type";
constexpr char kAccess[] = "rw";
constexpr char kLength[] = "len";
} // namespace registermember

/// The registers at that path, or what a state says of some; their schema has been held against them before. Their
/// names must be names, each once.
QJsonArray readRegisters(NameCheck& check, const QJsonValue& value, const JsonPath& path);

QString nameOfRegister(const QJsonValue& entry);
QString accessOf(const QJsonValue& entry);

/// The words for the access of a register that its schema knows.
QStringList accessWords();

} // namespace sim

#endif
