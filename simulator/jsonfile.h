#ifndef SIMULATOR_JSONFILE_H
#define SIMULATOR_JSONFILE_H

#include "simulator/filefault.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonObject>
#include <QString>
#include <QVariant>
#include <QVector>

#include <optional>

namespace sim
{

/// The way from the root of a JSON text to one of its values: member names and array positions.
class JsonPath
{
public:
    JsonPath operator/(const QString& member) const;
    JsonPath operator/(int position) const;
    const QVector<QVariant>& steps() const { return m_steps; }
    /// As a person writes it: registers[3].len
    QString toString() const;

private:
    QVector<QVariant> m_steps;
};

/// A JSON object read from a file, with the lines on which its values stand.
class JsonFile
{
    Q_DECLARE_TR_FUNCTIONS(sim::JsonFile)

public:
    /// Reads a regular file of at most 16 MiB, also through links. A file that can't be read, is no JSON object
    /// in UTF-8 or gives a member twice yields nothing and fills fault.
    static std::optional<JsonFile> read(const QString& path, FileFault* fault);

    const QJsonObject& root() const { return m_root; }

    /// A fault of this file at a value; a value that is not there has the line of the object that lacks it.
    FileFault faultAt(const JsonPath& path, const QString& text) const;

private:
    QString m_path;
    QByteArray m_text;
    QJsonObject m_root;
};

} // namespace sim

#endif
