#include "page/io/signals.h"

#include "common/mjson.h"

#include <QCoreApplication>

namespace
{

constexpr IoType kAO = {"AO", mJson::GetAO};
constexpr IoType kDO = {"DO", mJson::GetDO};
constexpr IoType kGO = {"GO", mJson::GetGO};
constexpr IoType kAI = {"AI", mJson::GetAI};
constexpr IoType kDI = {"DI", mJson::GetDI};
constexpr IoType kGI = {"GI", mJson::GetGI};

constexpr bool kOutput = true;
constexpr bool kInput = false;

constexpr PortKind kAnalogOutput = {&kAO, &kGO, RegisterKind::NumericWritable, kOutput};
constexpr PortKind kDigitalOutput = {&kDO, nullptr, RegisterKind::BoolWritable, kOutput};
constexpr PortKind kGroupOutput = {&kGO, nullptr, RegisterKind::IntegerWritable, kOutput};
constexpr PortKind kAnalogInput = {&kAI, &kGI, RegisterKind::NumericReadable, kInput};
constexpr PortKind kDigitalInput = {&kDI, nullptr, RegisterKind::BoolReadable, kInput};

/// A signal that is always in use.
constexpr IoRowTemplate fixed(const char* key, const char* name, const PortKind& kind)
{
    return {key, name, &kind, nullptr};
}

/// A signal with a switch, which is named after the signal or after something else.
constexpr IoRowTemplate optional(const char* key, const char* name, const PortKind& kind)
{
    return {key, name, &kind, key};
}

constexpr IoRowTemplate optional(const char* key, const char* name, const PortKind& kind, const char* switchStem)
{
    return {key, name, &kind, switchStem};
}

QString member(const char* stem, const char* what)
{
    return QLatin1String(stem) + QLatin1Char('_') + QLatin1String(what);
}

} // namespace

QStringList PortKind::typeEntries() const
{
    QStringList entries;
    for (int i = 0; i < typeCount(); ++i) {
        const IoType* io = ioType(i);
        entries.append(io != nullptr ? QLatin1String(io->label) : QLatin1String("REG"));
    }
    return entries;
}

QString IoRowTemplate::typeKey() const
{
    return member(key, "type");
}

QString IoRowTemplate::portKey() const
{
    return member(key, "port");
}

QString IoRowTemplate::biasKey() const
{
    return member(key, "bias");
}

QString IoRowTemplate::enabledKey() const
{
    return hasEnableSwitch() ? member(switchStem, "enabled") : QString();
}

const QVector<IoRowTemplate>& outputRowTemplates()
{
    static const QVector<IoRowTemplate> rows = {
        fixed("laser_enable", QT_TRANSLATE_NOOP("WeldioPage", "Laser on"), kDigitalOutput),
        optional("power", QT_TRANSLATE_NOOP("WeldioPage", "Power"), kAnalogOutput),
        optional("frequency", QT_TRANSLATE_NOOP("WeldioPage", "Frequency"), kAnalogOutput),
        optional("duty_cycle", QT_TRANSLATE_NOOP("WeldioPage", "Duty"), kAnalogOutput),
        optional("red_light", QT_TRANSLATE_NOOP("WeldioPage", "Guide laser"), kDigitalOutput),
        fixed("gas_protect", QT_TRANSLATE_NOOP("WeldioPage", "Assist Gas"), kDigitalOutput),
        optional("wire_speed", QT_TRANSLATE_NOOP("WeldioPage", "Wire speed"), kAnalogOutput),
        optional("wire_feed", QT_TRANSLATE_NOOP("WeldioPage", "Wire feed on"), kDigitalOutput),
        optional(kRetractDirectionKey, QT_TRANSLATE_NOOP("WeldioPage", "Wire back feed"), kDigitalOutput),
        optional("manual_wire_feed", QT_TRANSLATE_NOOP("WeldioPage", "Manual feed on"), kDigitalOutput),
        optional("manual_retract", QT_TRANSLATE_NOOP("WeldioPage", "Manual feed BWD"), kDigitalOutput),
        optional("adhesion_detection_en", QT_TRANSLATE_NOOP("WeldioPage", "Adhesion Detection Enable"), kDigitalOutput,
                 "adhesion_detection"),
        optional("descent_signal", QT_TRANSLATE_NOOP("WeldioPage", "Descent signal"), kDigitalOutput),
        optional("swing_job", QT_TRANSLATE_NOOP("WeldioPage", "Swing JOB"), kGroupOutput),
        optional("process_job", QT_TRANSLATE_NOOP("WeldioPage", "Process JOB"), kGroupOutput),
    };
    return rows;
}

const QVector<IoRowTemplate>& inputRowTemplates()
{
    static const QVector<IoRowTemplate> rows = {
        optional("power_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Laser power"), kAnalogInput),
        optional("light_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Laser feedback"), kDigitalInput),
        optional("laser_alarm", QT_TRANSLATE_NOOP("WeldioPage", "Laser alarm"), kDigitalInput),
        optional("shield_gas_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Gas detect"), kDigitalInput),
        optional("wire_speed_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Wire speed feedback"), kAnalogInput),
        optional("wire_feed_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Wire feedback"), kDigitalInput),
        optional("wire_feeder_alarm", QT_TRANSLATE_NOOP("WeldioPage", "Wire feeder alarm"), kDigitalInput),
        optional("adhesion_detection_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Adhesion Detection Feedback"),
                 kDigitalInput),
        optional("external_alarm", QT_TRANSLATE_NOOP("WeldioPage", "Welder Ready"), kDigitalInput),
    };
    return rows;
}
