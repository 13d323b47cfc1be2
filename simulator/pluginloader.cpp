#include "simulator/pluginloader.h"

#include "pendixhost/nouniquewidgetregistry.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTranslator>

#include <cxxabi.h>
#include <dlfcn.h>

#include <cstdlib>
#include <exception>
#include <memory>

namespace sim
{

namespace
{

struct FaultRow {
    LoadFault fault;
    const char* meaning;
};

constexpr FaultRow kFaults[] = {
    {LoadFault::None, QT_TRANSLATE_NOOP("sim::PluginLoader", "the plug-in loads")},
    {LoadFault::NoSuchFile, QT_TRANSLATE_NOOP("sim::PluginLoader", "no such file")},
    {LoadFault::NotALibrary, QT_TRANSLATE_NOOP("sim::PluginLoader", "not a loadable library")},
    {LoadFault::MissingSymbol, QT_TRANSLATE_NOOP("sim::PluginLoader", "a symbol is missing")},
    {LoadFault::NotRegistered, QT_TRANSLATE_NOOP("sim::PluginLoader", "the library registers no plug-in")},
    {LoadFault::ConstructionFailed, QT_TRANSLATE_NOOP("sim::PluginLoader", "the construction fails")},
    {LoadFault::InitFailed, QT_TRANSLATE_NOOP("sim::PluginLoader", "init fails")},
    {LoadFault::AfterInitFailed, QT_TRANSLATE_NOOP("sim::PluginLoader", "afterInit fails")},
    {LoadFault::RenderFailed, QT_TRANSLATE_NOOP("sim::PluginLoader", "render fails")},
    {LoadFault::NoPage, QT_TRANSLATE_NOOP("sim::PluginLoader", "the plug-in gives no page")},
    {LoadFault::Crashed, QT_TRANSLATE_NOOP("sim::PluginLoader", "the plug-in crashes while it is loaded")},
};

bool refuse(LoadResult* result, LoadFault fault, const QString& reason)
{
    result->fault = fault;
    result->reason = reason;
    return false;
}

/// A linker name as it stands in the source, when it is one of C++.
QString readable(const QString& symbol)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol.toLatin1().constData(), nullptr, nullptr, &status), &std::free);
    return status == 0 && name != nullptr ? QString::fromLocal8Bit(name.get()) : symbol;
}

/// The instructions that have been registered since these.
QStringList namesBeyond(const pendix::RlRegistry& former)
{
    QStringList names;
    for (const pendix::RlInstruction& instruction : pendix::RlRegistry::instance().instructions()) {
        names.append(instruction.name);
    }
    for (const pendix::RlInstruction& instruction : former.instructions()) {
        names.removeOne(instruction.name);
    }
    return names;
}

} // namespace

QString loadFaultTable()
{
    QString table;
    for (const FaultRow& row : kFaults) {
        table +=
            QStringLiteral("  %1  %2\n")
                .arg(QString::number(static_cast<int>(row.fault)).rightJustified(2), PluginLoader::tr(row.meaning));
    }
    return table;
}

PluginLoader::PluginLoader(SimHost* host, QObject* parent) : QObject(parent), m_host(host) {}

PluginLoader::~PluginLoader()
{
    // The plug-in objects go now; nobody may get a widget of theirs any more.
    for (auto plugin = m_plugins.cbegin(); plugin != m_plugins.cend(); ++plugin) {
        pendix::NoUniqueWidgetRegistry::instance().forget(plugin.key());
    }
}

LoadResult PluginLoader::load(const QString& file)
{
    LoadResult result;
    result.file = file;
    const QStringList known = pendixFactory()->names();
    const pendix::RlRegistry instructions = pendix::RlRegistry::instance();
    if (!openLibrary(&result)) {
        return result;
    }
    for (const QString& name : pendixFactory()->names()) {
        if (!known.contains(name)) {
            result.names.append(name);
        }
    }
    if (result.names.isEmpty()) {
        takeBack({}, instructions);
        refuse(&result, LoadFault::NotRegistered,
               known.isEmpty()
                   ? tr("the library is loaded, but it registered no plug-in")
                   : tr("the library is loaded, but it registered no plug-in besides those already known (%1)")
                         .arg(known.join(QLatin1String(", "))));
        return result;
    }
    for (const QString& name : qAsConst(result.names)) {
        if (!start(name, &result)) {
            takeBack(result.names, instructions);
            return result;
        }
    }
    result.bringsInstructions = pendix::RlRegistry::instance().calls() != instructions.calls();
    result.instructions = namesBeyond(instructions);
    return result;
}

void PluginLoader::takeBack(const QStringList& names, const pendix::RlRegistry& instructions)
{
    pendix::RlRegistry::instance() = instructions;
    // A plug-in that failed half-way must not go on answering; its widgets go before the object they know.
    for (const QString& name : names) {
        pendix::NoUniqueWidgetRegistry::instance().forget(name);
        m_host->withdraw(name);
        delete m_plugins.take(name);
        // Being destroyed, it leaves the application's list by itself.
        delete m_translators.take(name);
        pendix::unregisterPlugin(name);
    }
}

void PluginLoader::installTranslation(const QString& name, LoadResult* result)
{
    if (m_language != QLatin1String("zh")) {
        return;
    }
    const QString file = QStringLiteral(":/%1/language/%1_cn.qm").arg(name);
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file)) {
        result->remarks.append(tr("plug-in \"%1\" brings no Chinese translation: there is no %2").arg(name, file));
        return;
    }
    translator->setParent(this);
    QCoreApplication::installTranslator(translator.get());
    m_translators.insert(name, translator.release());
}

bool PluginLoader::openLibrary(LoadResult* result)
{
    const QFileInfo info(result->file);
    if (!info.exists()) {
        return refuse(result, LoadFault::NoSuchFile, tr("no such file"));
    }
    if (!info.isFile()) {
        return refuse(result, LoadFault::NotALibrary, tr("not a loadable library: not a plain file"));
    }
    // Absolute: a bare name would be looked for in the linker's folders instead of here.
    const QByteArray path = QFile::encodeName(info.absoluteFilePath());
    result->library = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    if (result->library != nullptr) {
        return true;
    }
    const QString words = QString::fromLocal8Bit(dlerror());
    static const QRegularExpression undefinedSymbol(QStringLiteral("undefined symbol: ([^\\s,]+)"));
    const QRegularExpressionMatch match = undefinedSymbol.match(words);
    if (match.hasMatch()) {
        return refuse(result, LoadFault::MissingSymbol, tr("missing symbol: %1").arg(readable(match.captured(1))));
    }
    return refuse(result, LoadFault::NotALibrary, tr("not a loadable library: %1").arg(words));
}

bool PluginLoader::guarded(LoadResult* result, LoadFault fault, const QString& step, const std::function<void()>& call)
{
    try {
        call();
        return true;
    } catch (const std::exception& exception) {
        return refuse(result, fault, tr("%1 failed: %2").arg(step, QString::fromLocal8Bit(exception.what())));
    } catch (...) {
        return refuse(result, fault, tr("%1 failed with an unknown exception").arg(step));
    }
}

bool PluginLoader::start(const QString& name, LoadResult* result)
{
    const auto step = [&name](const char* what) { return tr("%1 of plug-in \"%2\"").arg(QLatin1String(what), name); };
    // Before the plug-in's objects and their texts exist.
    installTranslation(name, result);
    pendix::PluginBase* plugin = nullptr;
    if (!guarded(result, LoadFault::ConstructionFailed, step("construction"),
                 [&] { plugin = pendixFactory()->create(name, this); })) {
        return false;
    }
    if (plugin == nullptr) {
        return refuse(result, LoadFault::ConstructionFailed,
                      tr("%1 failed: the factory gave nothing").arg(step("construction")));
    }
    m_plugins.insert(name, plugin);
    if (!guarded(result, LoadFault::InitFailed, step("init"), [plugin] { plugin->init(); }) ||
        !guarded(result, LoadFault::AfterInitFailed, step("afterInit"), [plugin] { plugin->afterInit(); }) ||
        !guarded(result, LoadFault::RenderFailed, step("render"), [plugin] { plugin->render(); })) {
        return false;
    }
    if (m_host->page(name) == nullptr) {
        return refuse(result, LoadFault::NoPage,
                      tr("plug-in \"%1\" gave no page: it never called CreateCenterWidget").arg(name));
    }
    const QString label = plugin->pluginLabel();
    result->labels.append(label.isEmpty() ? name : label);
    return true;
}

} // namespace sim
