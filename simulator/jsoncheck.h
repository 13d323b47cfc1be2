#ifndef SIMULATOR_JSONCHECK_H
#define SIMULATOR_JSONCHECK_H

#include "simulator/jsonfile.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QStringList>

#include <optional>

namespace sim
{

constexpr int kMostNames = 10000; ///< in one list

/// Takes a JSON tree apart and remembers the first thing that is not as it should be. Every reader gives an
/// empty value for a bad one, so that a caller reads on and looks once, at the end.
class JsonCheck
{
    Q_DECLARE_TR_FUNCTIONS(sim::JsonCheck)

public:
    struct Fault {
        JsonPath path;
        QString text;
    };

    const std::optional<Fault>& fault() const { return m_fault; }
    bool ok() const { return !m_fault; }

    /// Remembers a fault unless there already is one.
    void fail(const JsonPath& path, const QString& text);

    QJsonObject object(const QJsonValue& value, const JsonPath& path);
    QJsonArray array(const QJsonValue& value, const JsonPath& path);
    bool boolean(const QJsonValue& value, const JsonPath& path);
    double number(const QJsonValue& value, const JsonPath& path);
    double number(const QJsonValue& value, const JsonPath& path, double minimum, double maximum);
    int whole(const QJsonValue& value, const JsonPath& path, int minimum, int maximum);
    QString text(const QJsonValue& value, const JsonPath& path);
    /// A name as isName() has it.
    QString name(const QJsonValue& value, const JsonPath& path);
    /// Takes one more name into a list that has room for it and does not have it yet.
    void another(const QString& name, const JsonPath& path, QSet<QString>* list);
    /// One of the given words; case and surrounding blanks don't count.
    QString word(const QJsonValue& value, const JsonPath& path, const QStringList& words);

    /// Every required member is there, and none that is neither required nor optional.
    void members(const QJsonObject& object, const JsonPath& path, const QStringList& required,
                 const QStringList& optional = {});

    /// A text that is neither empty nor surrounded by blanks, has no control characters and can be written to a
    /// file and read again as it is.
    static bool isName(const QString& text);

private:
    std::optional<Fault> m_fault;
};

} // namespace sim

#endif
