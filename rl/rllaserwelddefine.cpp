#include "rl/rllaserwelddefine.h"

#include "rl/rllaseroninsertwidget.h"
#include "rl/rlparasetinsertwidget.h"
#include "rl/wmovecfinsertwidget.h"
#include "rl/wmovecfpropertywidget.h"
#include "rl/wmovecinsertwidget.h"
#include "rl/wmovecpropertywidget.h"
#include "rl/wmovelinsertwidget.h"
#include "rl/wmovelpropertywidget.h"

#include "pendix/rl.h"

#include <QLabel>
#include <QVBoxLayout>

#include <array>

namespace
{

constexpr char kGroup[] = "LaserWeld";

/// The editor of an instruction without parameters: always that one line, to be inserted or replaced at will.
class DefaultLineInsertWidget : public pendix::RLContentBase
{
public:
    explicit DefaultLineInsertWidget(const QString& line) : RLContentBase(nullptr), m_line(line)
    {
        auto* layout = new QVBoxLayout(this);
        auto* label = new QLabel(QStringLiteral("No parameters."), this);
        layout->addWidget(label, 0, Qt::AlignHCenter);
        layout->addStretch();
    }

    void FillWith(const QString&) override {}
    QString ToString() override { return m_line; }
    bool CheckInsert() override { return true; }
    bool CheckReplace() override { return true; }

private:
    QString m_line;
};

/// An instruction that is described by texts. "%1" and "%2" of the skeleton stand for translated labels, those of
/// the pattern for its parts; what is not used is empty.
struct LineInstruction {
    const char* name;
    const char* description;
    const char* skeleton;
    std::array<const char*, 2> labels;
    const char* pattern;
    std::array<const char*, 2> patternParts;
    const char* defaultLine;
    pendix::RLContentBase* (*createEditor)(const LineInstruction&); ///< null: the host builds it from the skeleton
};

template <typename Editor>
pendix::RLContentBase* createNamed(const LineInstruction& row)
{
    return new Editor(QLatin1String(row.name), nullptr);
}

pendix::RLContentBase* createFixedLine(const LineInstruction& row)
{
    return new DefaultLineInsertWidget(QLatin1String(row.defaultLine));
}

// Only the name: with its arguments such a line matches by its name alone.
constexpr char kBareName[] = R"(^\s*%1\s*(?://.*)?$)";
constexpr char kQuotedText[] = R"([^\"]+)";
constexpr char kInteger[] = R"(\s*(?:-?\d+)\s*)";
// 0 to 5000 without leading zeros.
constexpr char kSpotWeldTime[] = R"((?:0|[1-9]\d{0,2}|[1-4]\d{3}|5000))";

constexpr LineInstruction kLaserOn = {"LaserOn",
                                      QT_TRANSLATE_NOOP("RlLaserWeldDefine",
                                                        "Welding start instruction\n1. LaserOn(\"LsDatax\"), normal\n"
                                                        "2. LaserOn(\"LsDatax\", Time), spot weld"),
                                      "LaserOn;",
                                      {"", ""},
                                      R"(^\s*LaserOn\(\s*\"(%1)\"\s*(?:,\s*(%2)\s*)?\);\s*(?://.*)?$)",
                                      {kQuotedText, kSpotWeldTime},
                                      "LaserOn(\"LsData1\");",
                                      createNamed<pendix::RLLaserOnInsertWidget>};

constexpr LineInstruction kLaserOff = {
    "LaserOff",    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Welding end instruction\nLaserOff(), no parameters"),
    "LaserOff();", {"", ""},
    kBareName,     {"LaserOff", ""},
    "LaserOff();", createFixedLine};

constexpr LineInstruction kLsParaSet = {
    "LsParaSet",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter switch instruction\n1. LsParaSet(\"LsData1\"), no ramp\n"
                                           "2. LsParaSet(\"LsData1\", \"Time\", value), time ramp\n"
                                           "3. LsParaSet(\"LsData1\", \"Pos\"), position ramp"),
    "LsParaSet;",
    {"", ""},
    kBareName,
    {"LsParaSet", ""},
    "LsParaSet(\"LsData1\");",
    createNamed<pendix::RLParaSetInsertWidget>};

constexpr LineInstruction kLsWireFwd = {
    "LsWireFwd",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed instruction\nLsWireFwd(speed, time)"),
    "LsWireFwd($%1#spn#1,100#true$, $%2#spn#1,10000#true$);",
    {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed speed [1-100](mm/s):"),
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed time [1-10000](ms):")},
    R"(^\s*LsWireFwd\((%1),(%2)\);\s*(?://.*)?$)",
    {kInteger, kInteger},
    "LsWireFwd(50,1000);",
    nullptr};

constexpr LineInstruction kLsWireBwd = {
    "LsWireBwd",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire retract instruction\nLsWireBwd(speed, time)"),
    "LsWireBwd($%1#spn#1,100#true$, $%2#spn#1,10000#true$);",
    {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed back speed [1-100](mm/s):"),
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed back time [1-10000](ms):")},
    R"(^\s*LsWireBwd\((%1),(%2)\);\s*(?://.*)?$)",
    {kInteger, kInteger},
    "LsWireBwd(50,1000);",
    nullptr};

constexpr LineInstruction kLsParaMatch = {
    "LsParaMatch",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter match enable instruction\nLsParaMatch(\"PowerDatax\")"),
    R"(LsParaMatch($%1#cmb#"PowerData1"/"PowerData2"/"PowerData3"/"PowerData4"/"PowerData5"/"PowerData6"/"PowerData7")"
    R"(/"PowerData8"/"PowerData9"/"PowerData10"#true$);)",
    {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Sched:"), ""},
    R"(^\s*LsParaMatch\(\s*\"(%1)\"\s*\);\s*(?://.*)?$)",
    {kQuotedText, ""},
    "LsParaMatch(\"PowerData1\");",
    nullptr};

constexpr LineInstruction kLsParaMatchOff = {
    "LsParaMatchOff",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter match disable instruction\nLsParaMatchOff(), no parameters"),
    "LsParaMatchOff();",
    {"", ""},
    kBareName,
    {"LsParaMatchOff", ""},
    "LsParaMatchOff();",
    createFixedLine};

/// How the host is to read a parameter of a motion.
enum FieldKind { Number = 1, QuotedText = 2, Point = 3, Speed = 5, Zone = 6, Tool = 7, Wobj = 8 };

struct MotionField {
    const char* name;
    FieldKind kind;
};

constexpr int kMostFields = 8;

struct MotionInstruction {
    const char* name;
    const char* title;
    const char* syntax;
    std::array<MotionField, kMostFields> fields; ///< in argument order; those without a name are not used
    pendix::RLContentBase* (*createInsert)();
    pendix::RLContentBase* (*createProperty)();
};

template <typename Editor>
pendix::RLContentBase* create()
{
    return new Editor(nullptr);
}

constexpr MotionInstruction kMoveL = {
    "LsMoveL",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Linear welding motion instruction"),
    "LsMoveL(Pos, Speed, Zone, Tool, Wobj);",
    {{{"Pos", Point}, {"speed", Speed}, {"zone", Zone}, {"tool", Tool}, {"wobj", Wobj}}},
    create<WMoveLInsertWidget>,
    create<WMoveLPropertyWidget>};

constexpr MotionInstruction kMoveC = {
    "LsMoveC",
    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Arc welding motion instruction"),
    "LsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);",
    {{{"midPos", Point}, {"Pos", Point}, {"speed", Speed}, {"zone", Zone}, {"tool", Tool}, {"wobj", Wobj}}},
    create<WMoveCInsertWidget>,
    create<WMoveCPropertyWidget>};

constexpr MotionInstruction kMoveCF = {"LsMoveCF",
                                       QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Full circle welding motion instruction"),
                                       "LsMoveCF(Aux1, Aux2, RunDeg, \"RotType\", Speed, Zone, Tool, Wobj);",
                                       {{{"auxPos1", Point},
                                         {"auxPos2", Point},
                                         {"runDeg", Number},
                                         {"rotType", QuotedText},
                                         {"speed", Speed},
                                         {"zone", Zone},
                                         {"tool", Tool},
                                         {"wobj", Wobj}}},
                                       create<WMoveCFInsertWidget>,
                                       create<WMoveCFPropertyWidget>};

/// A template with its two places filled. A single arg call each: the first filling may hold a "%2".
QString filled(const char* text, const QString& first, const QString& second)
{
    const QString filling = QLatin1String(text);
    if (filling.contains(QLatin1String("%2"))) {
        return filling.arg(first, second);
    }
    return filling.contains(QLatin1String("%1")) ? filling.arg(first) : filling;
}

void registerLine(pendix::RLManager* manager, const LineInstruction& row)
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

void registerMotion(pendix::RLManager* manager, const MotionInstruction& row)
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

} // namespace

RlLaserWeldDefine::RlLaserWeldDefine(QObject* parent) : QObject(parent), m_manager(new pendix::RLManager(this))
{
    initLaserOn();
    initLaserOff();
    initParaSet();
    initWireFwd();
    initWireBwd();
    initLsParamMatch();
    initLsParaMatchOff();
    initLsMoveL();
    initLsMoveC();
    initLsMoveCF();
    m_manager->createGroups(tr("Laser Weld Ins"), QLatin1String(kGroup));
}

void RlLaserWeldDefine::initLaserOn()
{
    registerLine(m_manager, kLaserOn);
}

void RlLaserWeldDefine::initLaserOff()
{
    registerLine(m_manager, kLaserOff);
}

void RlLaserWeldDefine::initParaSet()
{
    registerLine(m_manager, kLsParaSet);
}

void RlLaserWeldDefine::initWireFwd()
{
    registerLine(m_manager, kLsWireFwd);
}

void RlLaserWeldDefine::initWireBwd()
{
    registerLine(m_manager, kLsWireBwd);
}

void RlLaserWeldDefine::initLsParamMatch()
{
    registerLine(m_manager, kLsParaMatch);
}

void RlLaserWeldDefine::initLsParaMatchOff()
{
    registerLine(m_manager, kLsParaMatchOff);
}

void RlLaserWeldDefine::initLsMoveL()
{
    registerMotion(m_manager, kMoveL);
}

void RlLaserWeldDefine::initLsMoveC()
{
    registerMotion(m_manager, kMoveC);
}

void RlLaserWeldDefine::initLsMoveCF()
{
    registerMotion(m_manager, kMoveCF);
}
