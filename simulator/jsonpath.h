#ifndef SIMULATOR_JSONPATH_H
#define SIMULATOR_JSONPATH_H

#include <QString>
#include <QVariant>
#include <QVector>

namespace sim
{

/// The way from the root of a JSON value to one of the values in it: member names and array positions.
class JsonPath
{
public:
    JsonPath operator/(const QString& member) const;
    JsonPath operator/(int position) const;
    /// This path and then that one.
    JsonPath operator/(const JsonPath& below) const;
    const QVector<QVariant>& steps() const { return m_steps; }
    /// As a person writes it: registers[3].len
    QString toString() const;

private:
    QVector<QVariant> m_steps;
};

} // namespace sim

#endif
