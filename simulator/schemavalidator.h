#ifndef SIMULATOR_SCHEMAVALIDATOR_H
#define SIMULATOR_SCHEMAVALIDATOR_H

#include "simulator/jsonpath.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

namespace sim
{

/// One thing about a value that is not as its schema has it.
struct SchemaFault {
    JsonPath path; ///< to the faulty value; to the one that is missing or too many
    QString text;  ///< "expected a whole number from 0 to 9999"

    /// "laser_power: expected a whole number from 0 to 9999"
    QString toString() const;
};

/// Holds values against one JSON Schema (draft 7), compiled once.
class SchemaValidator
{
public:
    /// The schema of a node, a command, the result array, "cell" or "state", compiled when it is first asked for. A
    /// name without a schema ends the process: it is a mistake in the program.
    static const SchemaValidator& of(const QString& name);

    /// A schema that is none throws std::runtime_error.
    explicit SchemaValidator(QJsonObject schema);
    ~SchemaValidator();
    Q_DISABLE_COPY(SchemaValidator)

    bool fits(const QJsonValue& value) const;
    /// The first of the faults; nothing for a value that fits.
    std::optional<SchemaFault> fault(const QJsonValue& value) const;
    /// All faults; none for a value that fits.
    QVector<SchemaFault> faults(const QJsonValue& value) const;

    /// The schema as it was read.
    const QJsonObject& schema() const { return m_schema; }
    /// What the schema says of the value at the end of a path: every keyword that applies there, references followed.
    /// Empty where it says nothing.
    QJsonObject rulesAt(const JsonPath& path) const;

private:
    struct Compiled;

    QJsonObject m_schema;
    std::unique_ptr<Compiled> m_compiled;
};

} // namespace sim

#endif
