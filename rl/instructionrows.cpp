#include "rl/instructionrow.h"

#include "rl/rllaseroninsertwidget.h"
#include "rl/rlparasetinsertwidget.h"
#include "rl/wmovecfinsertwidget.h"
#include "rl/wmovecfpropertywidget.h"
#include "rl/wmovecinsertwidget.h"
#include "rl/wmovecpropertywidget.h"
#include "rl/wmovelinsertwidget.h"
#include "rl/wmovelpropertywidget.h"

#include <QLabel>
#include <QVBoxLayout>

#include <iterator>

namespace
{

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

template <typename Editor>
pendix::RLContentBase* create()
{
    return new Editor(nullptr);
}

constexpr MotionField kSpeed{"speed", MotionField::Speed};
constexpr MotionField kZone{"zone", MotionField::Zone};
constexpr MotionField kTool{"tool", MotionField::Tool};
constexpr MotionField kWobj{"wobj", MotionField::Wobj};

constexpr InstructionRow kRows[] = {
    LineInstruction{"LaserOn",
                    QT_TRANSLATE_NOOP("RlLaserWeldDefine",
                                      "Welding start instruction\n1. LaserOn(\"LsDatax\"), normal\n"
                                      "2. LaserOn(\"LsDatax\", Time), spot weld"),
                    "LaserOn;",
                    {"", ""},
                    R"(^\s*LaserOn\(\s*\"(%1)\"\s*(?:,\s*(%2)\s*)?\);\s*(?://.*)?$)",
                    {kQuotedText, kSpotWeldTime},
                    "LaserOn(\"LsData1\");",
                    createNamed<pendix::RLLaserOnInsertWidget>},
    LineInstruction{"LaserOff",
                    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Welding end instruction\nLaserOff(), no parameters"),
                    "LaserOff();",
                    {"", ""},
                    kBareName,
                    {"LaserOff", ""},
                    "LaserOff();",
                    createFixedLine},
    LineInstruction{"LsParaSet",
                    QT_TRANSLATE_NOOP("RlLaserWeldDefine",
                                      "Parameter switch instruction\n1. LsParaSet(\"LsData1\"), no ramp\n"
                                      "2. LsParaSet(\"LsData1\", \"Time\", value), time ramp\n"
                                      "3. LsParaSet(\"LsData1\", \"Pos\"), position ramp"),
                    "LsParaSet;",
                    {"", ""},
                    kBareName,
                    {"LsParaSet", ""},
                    "LsParaSet(\"LsData1\");",
                    createNamed<pendix::RLParaSetInsertWidget>},
    LineInstruction{"LsWireFwd",
                    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed instruction\nLsWireFwd(speed, time)"),
                    "LsWireFwd($%1#spn#1,100#true$, $%2#spn#1,10000#true$);",
                    {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed speed [1-100](mm/s):"),
                     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed time [1-10000](ms):")},
                    R"(^\s*LsWireFwd\((%1),(%2)\);\s*(?://.*)?$)",
                    {kInteger, kInteger},
                    "LsWireFwd(50,1000);",
                    nullptr},
    LineInstruction{"LsWireBwd",
                    QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire retract instruction\nLsWireBwd(speed, time)"),
                    "LsWireBwd($%1#spn#1,100#true$, $%2#spn#1,10000#true$);",
                    {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed back speed [1-100](mm/s):"),
                     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed back time [1-10000](ms):")},
                    R"(^\s*LsWireBwd\((%1),(%2)\);\s*(?://.*)?$)",
                    {kInteger, kInteger},
                    "LsWireBwd(50,1000);",
                    nullptr},
    LineInstruction{
        "LsParaMatch",
        QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter match enable instruction\nLsParaMatch(\"PowerDatax\")"),
        R"(LsParaMatch($%1#cmb#"PowerData1"/"PowerData2"/"PowerData3"/"PowerData4"/"PowerData5"/"PowerData6"/"PowerData7")"
        R"(/"PowerData8"/"PowerData9"/"PowerData10"#true$);)",
        {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Sched:"), ""},
        R"(^\s*LsParaMatch\(\s*\"(%1)\"\s*\);\s*(?://.*)?$)",
        {kQuotedText, ""},
        "LsParaMatch(\"PowerData1\");",
        nullptr},
    LineInstruction{
        "LsParaMatchOff",
        QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter match disable instruction\nLsParaMatchOff(), no parameters"),
        "LsParaMatchOff();",
        {"", ""},
        kBareName,
        {"LsParaMatchOff", ""},
        "LsParaMatchOff();",
        createFixedLine},
    MotionInstruction{"LsMoveL",
                      QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Linear welding motion instruction"),
                      "LsMoveL(Pos, Speed, Zone, Tool, Wobj);",
                      {{{"Pos", MotionField::Point}, kSpeed, kZone, kTool, kWobj}},
                      create<WMoveLInsertWidget>,
                      create<WMoveLPropertyWidget>},
    MotionInstruction{"LsMoveC",
                      QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Arc welding motion instruction"),
                      "LsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);",
                      {{{"midPos", MotionField::Point}, {"Pos", MotionField::Point}, kSpeed, kZone, kTool, kWobj}},
                      create<WMoveCInsertWidget>,
                      create<WMoveCPropertyWidget>},
    MotionInstruction{"LsMoveCF",
                      QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Full circle welding motion instruction"),
                      "LsMoveCF(Aux1, Aux2, RunDeg, \"RotType\", Speed, Zone, Tool, Wobj);",
                      {{{"auxPos1", MotionField::Point},
                        {"auxPos2", MotionField::Point},
                        {"runDeg", MotionField::Number},
                        {"rotType", MotionField::QuotedText},
                        kSpeed,
                        kZone,
                        kTool,
                        kWobj}},
                      create<WMoveCFInsertWidget>,
                      create<WMoveCFPropertyWidget>},
};

} // namespace

const std::vector<InstructionRow>& instructionRows()
{
    static const std::vector<InstructionRow> rows(std::begin(kRows), std::end(kRows));
    return rows;
}
