#include "rl/rllaserwelddefine.h"

#include "rl/instructionrow.h"

#include <algorithm>

namespace
{

constexpr char kGroup[] = "LaserWeld";

/// A template with its two places filled. A single arg call each: the first filling may hold a "%2".
QString filled(const char* text, const QString& first, const QString& second)
{
    const QString filling = QLatin1String(text);
    if (filling.contains(QLatin1String("%2"))) {
        return filling.arg(first, second);
    }
    return filling.contains(QLatin1String("%1")) ? filling.arg(first) : filling;
}

void registerRow(pendix::RLManager* manager, const LineInstruction& row)
{
    const QString name = QLatin1String(row.name);
    const auto label = [&](std::size_t place) {
        const char* text = row.labels.at(place);
        return *text != '\0' ? RlLaserWeldDefine::tr(text) : QString();
    };
    const auto part = [&](std::size_t place) { return QString::fromLatin1(row.patternParts.at(place)); };
    manager->createTypeKey(name);
    manager->createSkeleton(name, filled(row.skeleton, label(0), label(1)));
    manager->createInsDescribe(name, RlLaserWeldDefine::tr(row.description));
    manager->createPattern(name, filled(row.pattern, part(0), part(1)));
    manager->createInsDefault(name, QLatin1String(row.defaultLine));
    if (row.createEditor != nullptr) {
        const auto factory = [&row] { return row.createEditor(row); };
        manager->createPropertyWidget(name, factory);
        manager->createInsertWidget(name, factory);
    }
    manager->createTypeToGroup(QLatin1String(kGroup), name);
}

/// A host may prefer the editors it builds from the fields to those of createData: these it can't overlook.
void forceMotionWidgets(pendix::RLManager* manager, const QString& name,
                        const std::function<pendix::RLContentBase*()>& insertFactory,
                        const std::function<pendix::RLContentBase*()>& propertyFactory)
{
    manager->createInsertWidget(name, insertFactory);
    manager->createPropertyWidget(name, propertyFactory);
}

void registerRow(pendix::RLManager* manager, const MotionInstruction& row)
{
    constexpr qint32 kFieldMaximum = 999;
    pendix::RlCustomCommandSpec spec;
    spec.name = QLatin1String(row.name);
    spec.description = RlLaserWeldDefine::tr(row.title) + QLatin1String("\n\n") + QLatin1String(row.syntax);
    spec.skeleton = spec.name + QLatin1Char(';');
    spec.useDefaultEditor = false;
    for (const MotionField& field : row.fields) {
        if (field.name != nullptr) {
            spec.fields.append({QLatin1String(field.name), field.kind, 0, QString(), 0, kFieldMaximum});
        }
    }
    manager->createData(QLatin1String(kGroup), spec, row.createInsert, row.createProperty);
    forceMotionWidgets(manager, spec.name, row.createInsert, row.createProperty);
}

void registerInstruction(pendix::RLManager* manager, const InstructionRow& instruction)
{
    std::visit([manager](const auto& row) { registerRow(manager, row); }, instruction);
}

} // namespace

RlLaserWeldDefine::RlLaserWeldDefine(QObject* parent) : QObject(parent), m_manager(new pendix::RLManager(this))
{
    for (const InstructionRow& row : instructionRows()) {
        registerInstruction(m_manager, row);
    }
    m_manager->createGroups(tr("Laser Weld Ins"), QLatin1String(kGroup));
}

void RlLaserWeldDefine::init(const char* name)
{
    const std::vector<InstructionRow>& rows = instructionRows();
    const auto isNamed = [name](const auto& row) { return qstrcmp(row.name, name) == 0; };
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const InstructionRow& row) { return std::visit(isNamed, row); });
    if (found == rows.end()) {
        qFatal("no instruction %s", name);
    }
    registerInstruction(m_manager, *found);
}
