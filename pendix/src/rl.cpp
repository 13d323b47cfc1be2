#include "pendix/rl.h"

#include "pendixhost/host.h"

namespace pendix
{

RLContentBase::RLContentBase(QWidget* parent) : QWidget(parent) {}

RLContentBase::~RLContentBase() = default;

void RLContentBase::FillWith(const QString& line)
{
    Q_UNUSED(line)
}

QString RLContentBase::ToString()
{
    return {};
}

bool RLContentBase::CheckInsert()
{
    return false;
}

bool RLContentBase::CheckReplace()
{
    return false;
}

RlRegistry& RlRegistry::instance()
{
    // Never destroyed: a factory's code may live in a library that is gone when the process ends.
    static auto* registry = new RlRegistry;
    return *registry;
}

QList<RlInstruction> RlRegistry::instructions() const
{
    return m_instructions;
}

QString RlRegistry::groupTitle(const QString& group) const
{
    return m_groupTitles.value(group);
}

QStringList RlRegistry::calls() const
{
    return m_calls;
}

void RlRegistry::clear()
{
    m_calls.clear();
    m_instructions.clear();
    m_groupTitles.clear();
}

RlInstruction& RlRegistry::entry(const char* operation, const QString& name)
{
    m_calls.append(QLatin1String(operation) + QLatin1Char(' ') + name);
    for (RlInstruction& instruction : m_instructions) {
        if (instruction.name == name) {
            return instruction;
        }
    }
    RlInstruction instruction;
    instruction.name = name;
    m_instructions.append(instruction);
    return m_instructions.last();
}

RLManager::RLManager(QObject* parent) : QObject(parent) {}

RLManager::~RLManager() = default;

void RLManager::createTypeKey(const QString& name)
{
    RlRegistry::instance().entry("createTypeKey", name);
}

void RLManager::createSkeleton(const QString& name, const QString& skeleton)
{
    RlRegistry::instance().entry("createSkeleton", name).skeleton = skeleton;
}

void RLManager::createInsDescribe(const QString& name, const QString& text)
{
    RlRegistry::instance().entry("createInsDescribe", name).description = text;
}

void RLManager::createPattern(const QString& name, const QString& regex)
{
    RlRegistry::instance().entry("createPattern", name).pattern = regex;
}

void RLManager::createInsDefault(const QString& name, const QString& line)
{
    RlRegistry::instance().entry("createInsDefault", name).defaultLine = line;
}

void RLManager::createPropertyWidget(const QString& name, const RLContentFactory& factory)
{
    RlRegistry::instance().entry("createPropertyWidget", name).propertyFactory = factory;
}

void RLManager::createInsertWidget(const QString& name, const RLContentFactory& factory)
{
    RlRegistry::instance().entry("createInsertWidget", name).insertFactory = factory;
}

void RLManager::createTypeToGroup(const QString& group, const QString& name)
{
    RlRegistry::instance().entry("createTypeToGroup", name).group = group;
}

void RLManager::createData(const QString& group, const RlCustomCommandSpec& spec, const RLContentFactory& insertFactory,
                           const RLContentFactory& propertyFactory)
{
    RlInstruction& instruction = RlRegistry::instance().entry("createData", spec.name);
    instruction.group = group;
    instruction.skeleton = spec.skeleton;
    instruction.description = spec.description;
    instruction.insertFactory = insertFactory;
    instruction.propertyFactory = propertyFactory;
    instruction.hasSpec = true;
    instruction.spec = spec;
}

void RLManager::createGroups(const QString& title, const QString& group)
{
    RlRegistry& registry = RlRegistry::instance();
    registry.m_calls.append(QStringLiteral("createGroups ") + group);
    registry.m_groupTitles.insert(group, title);
}

} // namespace pendix
