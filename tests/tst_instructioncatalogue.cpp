#include "rl/rllaserwelddefine.h"
#include "tests/fakehost.h"

#include <QComboBox>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

#include <memory>

using namespace pendix;

namespace
{

QString marked(const QString& context, const QString& text)
{
    return "%1 %2 <" + context + '|' + text + '>';
}

/// Changes every text into "%1 %2 <context|text>": who asked, and percent signs as a translator may write.
class MarkingTranslator : public QTranslator
{
public:
    MarkingTranslator() { QCoreApplication::installTranslator(this); }

    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*count*/) const override
    {
        return marked(context, QString::fromUtf8(text));
    }
    bool isEmpty() const override { return false; }
};

RlInstruction instruction(const QString& name)
{
    const QList<RlInstruction> all = RlRegistry::instance().instructions();
    for (const RlInstruction& candidate : all) {
        if (candidate.name == name) {
            return candidate;
        }
    }
    qFatal("no instruction %s", qPrintable(name));
}

void registerAll()
{
    RlRegistry::instance().clear();
    const RlLaserWeldDefine registrar(nullptr);
}

} // namespace

class TestInstructionCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void names();
    void calls();
    void patterns_data();
    void patterns();
    void texts_data();
    void texts();
    void fields();
    void factories_data();
    void factories();
    void translatedRegistration();
    void translatedEditors_data();
    void translatedEditors();

private:
    FakeHost m_host;
};

void TestInstructionCatalogue::init()
{
    registerAll();
}

void TestInstructionCatalogue::names()
{
    QStringList names;
    const QList<RlInstruction> all = RlRegistry::instance().instructions();
    for (const RlInstruction& one : all) {
        names.append(one.name);
        QCOMPARE(one.group, QString("LaserWeld"));
    }
    QCOMPARE(names, QStringList({"LaserOn", "LaserOff", "LsParaSet", "LsWireFwd", "LsWireBwd", "LsParaMatch",
                                 "LsParaMatchOff", "LsMoveL", "LsMoveC", "LsMoveCF"}));
    QCOMPARE(RlRegistry::instance().groupTitle("LaserWeld"), QString("Laser Weld Ins"));
    QCOMPARE(RlRegistry::instance().calls().last(), QString("createGroups LaserWeld"));
}

void TestInstructionCatalogue::calls()
{
    const QString texts = "createTypeKey createSkeleton createInsDescribe createPattern createInsDefault ";
    const QMap<QString, QString> expected{
        {"LaserOn", texts + "createPropertyWidget createInsertWidget createTypeToGroup"},
        {"LsWireFwd", texts + "createTypeToGroup"},
        {"LsMoveL", "createData createInsertWidget createPropertyWidget"}};
    QMap<QString, QStringList> made;
    const QStringList all = RlRegistry::instance().calls();
    for (const QString& call : all) {
        made[call.section(' ', 1)].append(call.section(' ', 0, 0));
    }
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        QCOMPARE(made[it.key()].join(' '), it.value());
    }
}

void TestInstructionCatalogue::patterns_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("accepted");
    const auto rows = [](const char* name, bool accepted, const QStringList& lines) {
        for (const QString& line : lines) {
            QTest::addRow("%s", qPrintable(line)) << name << line << accepted;
        }
    };
    rows("LaserOn", true,
         {"LaserOn(\"LsData1\");", "  LaserOn( \"LsData1\" , 250 );", "LaserOn(\"a b\",0);", "LaserOn(\"x\",5000);",
          "LaserOn(\"x\",4999);", "LaserOn(\"x\",999);", "LaserOn(\"LsData1\"); // start", "LaserOn(\"x\");//"});
    rows("LaserOn", false,
         {"LaserOn(\"x\",5001);", "LaserOn(\"x\",007);", "LaserOn(\"x\",10000);", "LaserOn(\"x\",-1);",
          "LaserOn(LsData1);", "LaserOn(\"\");", "LaserOn(\"x\")", "LaserOn (\"x\");", "LaserOn(\"x\",);",
          "LaserOn(\"a\"b\");", "LaserOn(\"x\"); start", "laserOn(\"x\");"});
    rows("LsWireFwd", true, {"LsWireFwd(50,1000);", " LsWireFwd( -5 , 7 ); // feed"});
    rows("LsWireFwd", false,
         {"LsWireFwd (50,1000);", "LsWireFwd(50,1000) ;", "LsWireFwd(50);", "LsWireFwd(1.5,2);", "LsWireFwd(+1,2);"});
    rows("LsWireBwd", true, {"LsWireBwd(50,1000);", "LsWireBwd( 50, -1 );"});
    rows("LsWireBwd", false, {"LsWireBwd (50,1000);", "LsWireFwd(50, 1);", "LsWireBwd(- 5,1);"});
    rows("LsParaMatch", true, {"LsParaMatch(\"PowerData1\");", " LsParaMatch( \"x\" ); // on"});
    rows("LsParaMatch", false, {"LsParaMatch(PowerData1);", "LsParaMatch(\"a\", 1);", "LsParaMatchOff();"});
    const QStringList bareNames{"LaserOff", "LsParaMatchOff", "LsParaSet"};
    for (const QString& name : bareNames) {
        rows(qPrintable(name), true, {name, "  " + name + " // text", name + "//"});
        rows(qPrintable(name), false, {name + "();", name + ";", "x" + name});
    }
}

void TestInstructionCatalogue::patterns()
{
    QFETCH(QString, name);
    QFETCH(QString, line);
    const QRegularExpression pattern(instruction(name).pattern);
    QVERIFY(pattern.isValid());
    QTEST(pattern.match(line).hasMatch(), "accepted");
}

void TestInstructionCatalogue::texts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("skeleton");
    QTest::addColumn<QString>("defaultLine");
    QTest::addColumn<QString>("description");
    const auto row = [](const char* name, const char* skeleton, const char* line, const char* description) {
        QTest::newRow(name) << name << skeleton << line << description;
    };
    row("LaserOn", "LaserOn;", "LaserOn(\"LsData1\");",
        "Welding start instruction\n1. LaserOn(\"LsDatax\"), normal\n2. LaserOn(\"LsDatax\", Time), spot weld");
    row("LsParaSet", "LsParaSet;", "LsParaSet(\"LsData1\");",
        "Parameter switch instruction\n1. LsParaSet(\"LsData1\"), no ramp\n2. LsParaSet(\"LsData1\", \"Time\", "
        "value), time ramp\n3. LsParaSet(\"LsData1\", \"Pos\"), position ramp");
    row("LsWireFwd",
        "LsWireFwd($Wire feed speed [1-100](mm/s):#spn#1,100#true$, $Wire feed time [1-10000](ms):#spn#1,10000#true$);",
        "LsWireFwd(50,1000);", "Wire feed instruction\nLsWireFwd(speed, time)");
    row("LsWireBwd",
        "LsWireBwd($Wire feed back speed [1-100](mm/s):#spn#1,100#true$, $Wire feed back time "
        "[1-10000](ms):#spn#1,10000#true$);",
        "LsWireBwd(50,1000);", "Wire retract instruction\nLsWireBwd(speed, time)");
    QStringList tables;
    for (int i = 1; i <= 10; ++i) {
        tables.append(QString("\"PowerData%1\"").arg(i));
    }
    row("LsParaMatch", qPrintable("LsParaMatch($Sched:#cmb#" + tables.join('/') + "#true$);"),
        "LsParaMatch(\"PowerData1\");", "Parameter match enable instruction\nLsParaMatch(\"PowerDatax\")");
    row("LsMoveC", "LsMoveC;", "", "Arc welding motion instruction\n\nLsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);");
    row("LsMoveCF", "LsMoveCF;", "",
        "Full circle welding motion instruction\n\n"
        "LsMoveCF(Aux1, Aux2, RunDeg, \"RotType\", Speed, Zone, Tool, Wobj);");
}

void TestInstructionCatalogue::texts()
{
    QFETCH(QString, name);
    const RlInstruction one = instruction(name);
    QTEST(one.skeleton, "skeleton");
    QTEST(one.defaultLine, "defaultLine");
    QTEST(one.description, "description");
}

void TestInstructionCatalogue::fields()
{
    const QString motion = " speed5 zone6 tool7 wobj8";
    const QMap<QString, QString> expected{{"LsMoveL", "Pos3" + motion},
                                          {"LsMoveC", "midPos3 Pos3" + motion},
                                          {"LsMoveCF", "auxPos13 auxPos23 runDeg1 rotType2" + motion}};
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        const RlInstruction one = instruction(it.key());
        QStringList fields;
        for (const RlCustomField& field : one.spec.fields) {
            fields.append(field.name + QString::number(field.kind));
            QVERIFY(field.option == 0 && field.defaultValue.isEmpty() && field.minimum == 0 && field.maximum == 999);
        }
        QCOMPARE(fields.join(' '), it.value());
        QVERIFY(!one.spec.useDefaultEditor && one.spec.name == one.name && one.pattern.isEmpty());
    }
}

void TestInstructionCatalogue::factories_data()
{
    QTest::addColumn<QString>("insertClass");
    QTest::addColumn<QString>("propertyClass");
    const char* laserOn = "pendix::RLLaserOnInsertWidget";
    const char* paraSet = "pendix::RLParaSetInsertWidget";
    const char* fixed = "pendix::RLContentBase"; // has no meta-object of its own
    QTest::newRow("LaserOn") << laserOn << laserOn;
    QTest::newRow("LsParaSet") << paraSet << paraSet;
    QTest::newRow("LaserOff") << fixed << fixed;
    QTest::newRow("LsParaMatchOff") << fixed << fixed;
    QTest::newRow("LsMoveL") << "WMoveLInsertWidget"
                             << "WMoveLPropertyWidget";
    QTest::newRow("LsMoveC") << "WMoveCInsertWidget"
                             << "WMoveCPropertyWidget";
    QTest::newRow("LsMoveCF") << "WMoveCFInsertWidget"
                              << "WMoveCFPropertyWidget";
}

void TestInstructionCatalogue::factories()
{
    QFETCH(QString, insertClass);
    QFETCH(QString, propertyClass);
    const RlInstruction one = instruction(QTest::currentDataTag());
    const auto check = [](const RLContentFactory& factory, const QString& expected) {
        const std::unique_ptr<RLContentBase> first(factory());
        const std::unique_ptr<RLContentBase> second(factory());
        QVERIFY(first != second && first->parent() == nullptr);
        QCOMPARE(QString(first->metaObject()->className()), expected);
    };
    check(one.insertFactory, insertClass);
    check(one.propertyFactory, propertyClass);
}

void TestInstructionCatalogue::translatedRegistration()
{
    const MarkingTranslator translator;
    const QString plain = instruction("LaserOff").description;
    const QString motionTitle = "Arc welding motion instruction";
    registerAll();
    const auto own = [](const QString& text) { return marked("RlLaserWeldDefine", text); };
    QCOMPARE(RlRegistry::instance().groupTitle("LaserWeld"), own("Laser Weld Ins"));
    QCOMPARE(instruction("LaserOff").description, own(plain));
    QVERIFY(instruction("LsMoveC").description.startsWith(own(motionTitle) + "\n\nLsMoveC("));
    QCOMPARE(instruction("LsWireFwd").skeleton,
             QString("LsWireFwd($" + own("Wire feed speed [1-100](mm/s):") + "#spn#1,100#true$, $" +
                     own("Wire feed time [1-10000](ms):") + "#spn#1,10000#true$);"));
    QVERIFY(instruction("LsParaMatch").skeleton.startsWith("LsParaMatch($" + own("Sched:") + "#cmb#\"PowerData1\"/"));
}

void TestInstructionCatalogue::translatedEditors_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isInsert");
    QTest::addColumn<QString>("context");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("LaserOn") << "LaserOn" << true << "RLLaserOnInsertWidget"
                             << QStringList{"Sched:", "Start mode:", "In-place wait(ms):"};
    QTest::newRow("LsParaSet") << "LsParaSet" << true << "RLParaSetInsertWidget"
                               << QStringList{"LsDataID: ", "Ramp Type: ", "Time(ms): "};
    const QStringList captions{"Tool(T): ", "Wobj(W): ", "Speed(V): ", "Zone(Z): "};
    const QMap<QString, QStringList> motions{
        {"L", {"TargetPoint(robtarget): "}},
        {"C", {"AuxPoint(robtarget): ", "TargetPoint(robtarget): "}},
        {"CF", {"AuxPoint1(robtarget): ", "AuxPoint2(robtarget): ", "RotType(rottype): ", "RunDeg(rundeg): "}}};
    for (auto it = motions.begin(); it != motions.end(); ++it) {
        for (const bool isInsert : {true, false}) {
            const QString context = "WMove" + it.key() + (isInsert ? "Insert" : "Property") + "Widget";
            QTest::newRow(qPrintable(context)) << "LsMove" + it.key() << isInsert << context << captions + it.value();
        }
    }
}

void TestInstructionCatalogue::translatedEditors()
{
    QFETCH(QString, name);
    QFETCH(bool, isInsert);
    QFETCH(QString, context);
    QFETCH(QStringList, labels);
    const MarkingTranslator translator;
    const RlInstruction one = instruction(name);
    const std::unique_ptr<RLContentBase> editor(isInsert ? one.insertFactory() : one.propertyFactory());
    QStringList shown;
    const auto found = editor->findChildren<QLabel*>();
    for (const QLabel* label : found) {
        shown.append(label->text());
    }
    for (const QString& label : qAsConst(labels)) {
        QVERIFY2(shown.contains(marked(context, label)), qPrintable(label));
    }
    if (name == "LaserOn") {
        const auto* mode = editor->findChild<QComboBox*>("cbxStartMode");
        QCOMPARE(mode->itemText(0), marked("pendix::RLLaserOnInsertWidget", "Normal"));
        QCOMPARE(mode->itemText(1), marked("pendix::RLLaserOnInsertWidget", "Spot weld"));
    }
    if (name.startsWith("LsMove")) {
        QVERIFY(shown.contains(marked("SetUpPointWidget", "Position(mm): ")));
        QVERIFY(shown.contains(marked("SetUpPointWidget", QString::fromUtf8("Euler(°): "))));
    }
}

QTEST_MAIN(TestInstructionCatalogue)
#include "tst_instructioncatalogue.moc"
