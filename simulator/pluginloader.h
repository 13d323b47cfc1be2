#ifndef SIMULATOR_PLUGINLOADER_H
#define SIMULATOR_PLUGINLOADER_H

#include "simulator/simhost.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QTranslator;

namespace sim
{

/// Why a plug-in did not load. The values are the exit codes of --check.
enum class LoadFault {
    None = 0,
    NoSuchFile = 10,
    NotALibrary = 11,
    MissingSymbol = 12,
    NotRegistered = 13,
    ConstructionFailed = 14,
    InitFailed = 15,
    AfterInitFailed = 16,
    RenderFailed = 17,
    NoPage = 18,
    Crashed = 19 ///< found only by --check, which loads in a process of its own
};

/// The exit codes of --check as a table for --help.
QString loadFaultTable();

/// What became of one plug-in file.
struct LoadResult {
    QString file;
    LoadFault fault = LoadFault::None;
    QString reason;                  ///< for a person; empty when it loaded
    QStringList names;               ///< the plug-ins that the library registered
    QStringList labels;              ///< the labels under which they want to be listed, in the same order
    QStringList instructions;        ///< the instructions that are new with the library
    bool bringsInstructions = false; ///< it registered instructions, new ones or some known already
    void* library = nullptr;         ///< handle of the loaded library (dlopen)
    QStringList remarks = {};        ///< what is worth knowing and no fault
};

/// Loads plug-ins in the order of a pendant: the library, the factories that it registered, their translations, and
/// for each of them construction, init, afterInit and render. Owns the plug-in objects. Exceptions in these steps end
/// with the step that threw them, and all that the library's plug-ins have handed over is withdrawn. Libraries stay
/// loaded until the process ends: the host's registries keep factories, and pages and timers keep objects, whose code
/// lies in them.
class PluginLoader : public QObject
{
    Q_OBJECT

public:
    explicit PluginLoader(SimHost* host, QObject* parent = nullptr);
    ~PluginLoader() override;

    /// "zh": plug-ins that are loaded from now on get the Chinese translation that they bring. Any other language is
    /// theirs as written.
    void setLanguage(const QString& language) { m_language = language; }

    LoadResult load(const QString& file);

private:
    bool openLibrary(LoadResult* result);
    void installTranslation(const QString& name, LoadResult* result);
    bool start(const QString& name, LoadResult* result);
    void takeBack(const QStringList& names, const pendix::RlRegistry& instructions);
    bool guarded(LoadResult* result, LoadFault fault, const QString& step, const std::function<void()>& call);

    SimHost* m_host;
    QString m_language;
    QHash<QString, pendix::PluginBase*> m_plugins;
    QHash<QString, QTranslator*> m_translators;
};

} // namespace sim

#endif
