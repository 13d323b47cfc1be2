#include "rl/instructionrow.h"
#include "rl/rllaserwelddefine.h"
#include "tests/fakehost.h"

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
    void everyRow();
    void calls();
    void patterns();
    void texts();
    void editors_data();
    void editors();

private:
    FakeHost m_host;
};

void TestInstructionCatalogue::init()
{
    registerAll();
}

void TestInstructionCatalogue::everyRow()
{
    QStringList rows;
    for (const InstructionRow& row : instructionRows()) {
        rows.append(std::visit([](const auto& each) { return QString(each.name); }, row));
    }
    QStringList registered;
    const QList<RlInstruction> all = RlRegistry::instance().instructions();
    for (const RlInstruction& one : all) {
        registered.append(one.name);
        QCOMPARE(one.group, QString("LaserWeld"));
    }
    QCOMPARE(registered, rows);
}

void TestInstructionCatalogue::calls()
{
    const QString texts = "createTypeKey createSkeleton createInsDescribe createPattern createInsDefault ";
    const QStringList all = RlRegistry::instance().calls();
    const auto made = [&](const QString& name) {
        return all.filter(QRegularExpression(' ' + name + '$')).join(' ').remove(' ' + name);
    };
    QCOMPARE(made("LaserOn"), texts + "createPropertyWidget createInsertWidget createTypeToGroup");
    QCOMPARE(made("LsWireFwd"), texts + "createTypeToGroup");
    QCOMPARE(made("LsMoveL"), QString("createData createInsertWidget createPropertyWidget"));
    // The steps, one by one, do the same once more, but for the group, which comes last.
    RlLaserWeldDefine registrar(nullptr);
    RlRegistry::instance().clear();
    using R = RlLaserWeldDefine;
    for (const auto step :
         {&R::initLaserOn, &R::initLaserOff, &R::initParaSet, &R::initWireFwd, &R::initWireBwd, &R::initLsParamMatch,
          &R::initLsParaMatchOff, &R::initLsMoveL, &R::initLsMoveC, &R::initLsMoveCF}) {
        (registrar.*step)();
    }
    // A newer row has no step of its own.
    const QStringList steps = RlRegistry::instance().calls();
    QStringList ofThese = all;
    ofThese.erase(std::remove_if(ofThese.begin(), ofThese.end(), [&](const QString& c) { return !steps.contains(c); }),
                  ofThese.end());
    QCOMPARE(steps, ofThese);
    QCOMPARE(all.last(), QString("createGroups LaserWeld"));
}

void TestInstructionCatalogue::patterns()
{
    const auto accepts = [](const char* name, bool accepted, const QStringList& lines) {
        const QRegularExpression pattern(instruction(name).pattern);
        QVERIFY(pattern.isValid());
        for (const QString& line : lines) {
            QVERIFY2(pattern.match(line).hasMatch() == accepted, qPrintable(line));
        }
    };
    accepts("LaserOn", true,
            {"LaserOn(\"LsData1\");", "  LaserOn( \"LsData1\" , 250 );", "LaserOn(\"a b\",0);", "LaserOn(\"x\",5000);",
             "LaserOn(\"x\",4999);", "LaserOn(\"x\",999);", "LaserOn(\"LsData1\"); // start"});
    accepts("LaserOn", false,
            {"LaserOn(\"x\",5001);", "LaserOn(\"x\",007);", "LaserOn(\"x\",10000);", "LaserOn(\"x\",-1);",
             "LaserOn(LsData1);", "LaserOn(\"\");", "LaserOn(\"x\")", "LaserOn (\"x\");", "LaserOn(\"x\",);",
             "LaserOn(\"a\"b\");", "LaserOn(\"x\"); start"});
    accepts("LsWireFwd", true, {"LsWireFwd(50,1000);", " LsWireFwd( -5 , 7 ); // feed"});
    accepts("LsWireFwd", false, {"LsWireFwd (50,1000);", "LsWireFwd(50);", "LsWireFwd(1.5,2);", "LsWireFwd(+1,2);"});
    accepts("LsWireBwd", true, {"LsWireBwd( 50, -1 ); // retract"});
    accepts("LsWireBwd", false, {"LsWireBwd (50,1000);", "LsWireFwd(50, 1);"});
    accepts("LsParaMatch", true, {"LsParaMatch(\"PowerData1\");", " LsParaMatch( \"x\" ); // on"});
    accepts("LsParaMatch", false, {"LsParaMatch(PowerData1);", "LsParaMatch(\"a\", 1);"});
    for (const char* name : {"LaserOff", "LsParaMatchOff", "LsParaSet"}) {
        const QString text = name;
        accepts(name, true, {text, "  " + text + " // text"});
        accepts(name, false, {text + "();", text + ";", "x" + text});
    }
}

/// What is not for translation. A translated text that changes is missed by the translation.
void TestInstructionCatalogue::texts()
{
    const MarkingTranslator translator;
    registerAll();
    const auto own = [](const QString& text) { return marked("RlLaserWeldDefine", text); };
    const auto wire = [&](const QString& name, const QString& way) {
        return QString("Ls%1($%2#spn#1,100#true$, $%3#spn#1,10000#true$); Ls%1(50,1000);")
            .arg(name, own(way + " speed [1-100](mm/s):"), own(way + " time [1-10000](ms):"));
    };
    QStringList tables;
    for (int i = 1; i <= 10; ++i) {
        tables.append(QString("\"PowerData%1\"").arg(i));
    }
    QStringList texts;
    const QList<RlInstruction> all = RlRegistry::instance().instructions();
    for (const RlInstruction& one : all) {
        const QString syntax = one.description.section(">\n\n", 1);
        QVERIFY(one.description.startsWith("%1 %2 <RlLaserWeldDefine|"));
        texts.append(one.skeleton + ' ' + (one.spec.name.isEmpty() ? one.defaultLine : syntax));
    }
    QCOMPARE(
        texts,
        QStringList(
            {"LaserOn; LaserOn(\"LsData1\");", "LaserOff(); LaserOff();", "LsParaSet; LsParaSet(\"LsData1\");",
             wire("WireFwd", "Wire feed"), wire("WireBwd", "Wire feed back"),
             "LsParaMatch($" + own("Sched:") + "#cmb#" + tables.join('/') + "#true$); LsParaMatch(\"PowerData1\");",
             "LsParaMatchOff(); LsParaMatchOff();", "LsMoveL; LsMoveL(Pos, Speed, Zone, Tool, Wobj);",
             "LsMoveC; LsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);",
             "LsMoveCF; LsMoveCF(Aux1, Aux2, RunDeg, \"RotType\", Speed, Zone, Tool, Wobj);"}));
    QCOMPARE(RlRegistry::instance().groupTitle("LaserWeld"), own("Laser Weld Ins"));
}

void TestInstructionCatalogue::editors_data()
{
    QTest::addColumn<QStringList>("classes"); // of the insert and the property editor
    QTest::addColumn<QString>("fields");      // of a motion: name and kind
    QTest::addColumn<QString>("captions");    // of some labels that tell an editor from its twins
    const auto motion = [](const QString& name, const QString& fields, const QString& captions) {
        const QString names = "Tool(T): |Wobj(W): |Speed(V): |Zone(Z): ";
        QTest::newRow(qPrintable("Ls" + name))
            << QStringList{'W' + name + "InsertWidget", 'W' + name + "PropertyWidget"}
            << fields + " speed5 zone6 tool7 wobj8" << captions + '|' + names;
    };
    const QString laserOn = "pendix::RLLaserOnInsertWidget";
    const QString paraSet = "pendix::RLParaSetInsertWidget";
    QTest::newRow("LaserOn") << QStringList{laserOn, laserOn} << ""
                             << "Sched:|Start mode:|In-place wait(ms):";
    QTest::newRow("LsParaSet") << QStringList{paraSet, paraSet} << ""
                               << "Time(ms): |LsDataID: |Ramp Type: ";
    motion("MoveL", "Pos3", "TargetPoint(robtarget): ");
    motion("MoveC", "midPos3 Pos3", "AuxPoint(robtarget): |TargetPoint(robtarget): ");
    motion("MoveCF", "auxPos13 auxPos23 runDeg1 rotType2",
           "AuxPoint1(robtarget): |AuxPoint2(robtarget): |RotType(rottype): |RunDeg(rundeg): ");
}

/// A factory makes a new editor each time, which asks for its captions in its own name.
void TestInstructionCatalogue::editors()
{
    QFETCH(QStringList, classes);
    QFETCH(QString, captions);
    const MarkingTranslator translator;
    const RlInstruction one = instruction(QTest::currentDataTag());
    for (const RLContentFactory& factory : {one.insertFactory, one.propertyFactory}) {
        const std::unique_ptr<RLContentBase> editor(factory());
        const std::unique_ptr<RLContentBase> second(factory());
        QVERIFY(editor != second && editor->parent() == nullptr);
        const QString name = editor->metaObject()->className();
        QCOMPARE(name, classes.takeFirst());
        // By object name: "label", "label_4", "label_2", "label_5" are those of the fields that every motion has.
        QStringList shown;
        for (const char* label : {"labelLaserData", "labelStartMode", "labelInPlaceWait", "lblPoint", "label_3",
                                  "label_6", "label", "label_4", "label_2", "label_5"}) {
            const auto found = editor->findChildren<QLabel*>(label);
            for (const QLabel* each : found) {
                shown.append(each->text());
            }
        }
        QStringList expected;
        const QStringList all = captions.split('|');
        for (const QString& caption : all) {
            expected.append(marked(QString(name).remove("pendix::"), caption));
        }
        QCOMPARE(shown, expected);
    }
    QStringList fields;
    for (const RlCustomField& field : one.spec.fields) {
        fields.append(field.name + QString::number(field.kind));
        QVERIFY(field.option == 0 && field.defaultValue.isEmpty() && field.minimum == 0 && field.maximum == 999);
    }
    QTEST(fields.join(' '), "fields");
    QVERIFY(one.spec.name.isEmpty() || (!one.spec.useDefaultEditor && one.spec.name == one.name));
}

QTEST_MAIN(TestInstructionCatalogue)
#include "tst_instructioncatalogue.moc"
