#ifndef SIMULATOR_NAMECHECK_H
#define SIMULATOR_NAMECHECK_H

#include "simulator/schemavalidator.h"

#include <QSet>
#include <QStringList>

namespace sim
{

constexpr int kMostNames = 10000; ///< in one list

/// A text that is neither empty nor surrounded by blanks, has no control characters and can be written to a file and
/// read again as it is.
bool isName(const QString& text);

/// What a schema can't say of names. Remembers the first thing that is not as it should be; a caller reads on and looks
/// once, at the end.
class NameCheck
{
public:
    const std::optional<SchemaFault>& fault() const { return m_fault; }

    /// The name itself, which must be one; another one after a fault.
    QString name(const QJsonValue& value, const JsonPath& path);
    /// A name that must be in a list.
    QString choice(const QJsonValue& value, const JsonPath& path, const QStringList& names, const char* list);
    /// Takes one more name into a list that has room for it and does not have it yet.
    void another(const QString& name, const JsonPath& path, QSet<QString>* list);

private:
    void fail(const JsonPath& path, const QString& text);

    std::optional<SchemaFault> m_fault;
};

} // namespace sim

#endif
