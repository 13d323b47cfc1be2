#include "simulator/program/instructionline.h"
#include "simulator/program/programfile.h"
#include "simulator/program/recogniser.h"
#include "simulator/wholefile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace sim;

namespace
{

pendix::RlInstruction instruction(const char* name, const char* pattern, bool hasSpec = false)
{
    pendix::RlInstruction result;
    result.name = QLatin1String(name);
    result.pattern = QLatin1String(pattern);
    result.hasSpec = hasSpec;
    return result;
}

QList<pendix::RlInstruction> registered()
{
    return {
        instruction("LaserOn",
                    R"re(^\s*LaserOn\(\s*\"([^\"]+)\"\s*(?:,\s*((?:0|[1-9]\d{0,2}|[1-4]\d{3}|5000))\s*)?\);\s*)re"
                    R"re((?://.*)?$)re"),
        instruction("LaserOff", R"(^\s*LaserOff\s*(?://.*)?$)"),
        instruction("LsWireFwd", R"(^\s*LsWireFwd\((\s*(?:-?\d+)\s*),(\s*(?:-?\d+)\s*)\);\s*(?://.*)?$)"),
        instruction("Broken", R"(^Broken\((\d+;)"),
        instruction("MoveL", "", true),
        instruction("Unknowable", ""),
        instruction("AnyMove", "^Move"),
        instruction("AnyLaser", R"(^\s*Laser\w+$)"),
    };
}

} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private slots:
    void linesAreTakenApart_data();
    void linesAreTakenApart();
    void linesAreRecognised_data();
    void linesAreRecognised();
    void acceptsOnlyItsOwn();
    void programsAreRead_data();
    void programsAreRead();
    void refusedProgramsLeaveTheFile_data();
    void refusedProgramsLeaveTheFile();

private:
    QString path() const { return m_folder.filePath(QStringLiteral("program")); }
    void write(const QByteArray& bytes) const;

    QTemporaryDir m_folder;
};

void TestProgram::write(const QByteArray& bytes) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

void TestProgram::linesAreTakenApart_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("name");
    const char* const rows[][4] = {
        {"empty", "", "", ""},
        {"blank", " \t", "", ""},
        {"comment only", "", "  // Off();", ""},
        {"code only", " LaserOff  ", "", "LaserOff"},
        {"both", "\tOn (\"a\"); /", " \t//b // \"c", "On"},
        {"quoted slashes", "On(\"http://a\");", "// \"", "On"},
        {"open quote", "On(\"a // b", "", "On"},
        {"between quotes", "On(\"a\"", "//\"b\"", "On"},
    };
    for (const auto& [title, code, comment, name] : rows) {
        QTest::newRow(title) << code << comment << name;
    }
}

void TestProgram::linesAreTakenApart()
{
    QFETCH(QString, code);
    QFETCH(QString, comment);
    const InstructionLine line = splitLine(code + comment);
    QCOMPARE(line.code, code);
    QCOMPARE(line.comment, comment);
    QTEST(instructionName(code + comment), "name");
}

void TestProgram::linesAreRecognised_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    const char* const rows[][2] = {
        {"  LaserOn(\"a//b\" , 5000);  // LaserOff", "LaserOn"},
        {"LaserOn(\"%1\");", "LaserOn"},
        {"LsWireFwd( -5 ,99999);", "LsWireFwd"},
        {"LsWireFwd(5);", ""},
        {"LsWireFwd(5,6); x // y", ""},
        {"LaserOff", "LaserOff"},
        {"\tLaserOff // now", "LaserOff"},
        // Only the name is left to go by.
        {"LaserOff(1, 2); // now", "LaserOff"},
        {"LaserOn(\"a\", 5001);", "AnyLaser"},
        {"LaserOff;", ""},
        {"laseroff", ""},
        {"Broken(1;", ""},
        {"Unknowable", ""},
        // A pattern that is found in the whole line goes before a name.
        {"MoveL(p1, v100);", "AnyMove"},
        {" MoveL(p1, v100);", "MoveL"},
        {" MoveLinear(p1, v100);", "AnyMove"},
        {"", ""},
        {"  // LaserOff", ""},
    };
    for (const auto& [line, name] : rows) {
        QTest::newRow(line) << line << name;
    }
}

void TestProgram::linesAreRecognised()
{
    QFETCH(QString, line);
    const Recogniser recogniser(registered());
    const pendix::RlInstruction* found = recogniser.find(line);
    QTEST(found == nullptr ? QString() : found->name, "name");
    QCOMPARE(Recogniser::isBlank(line), line.remove(QStringLiteral("// LaserOff")).trimmed().isEmpty());
}

void TestProgram::acceptsOnlyItsOwn()
{
    const QList<pendix::RlInstruction> all = registered();
    const Recogniser recogniser(all);
    QVERIFY(recogniser.accepts(all.at(1), QStringLiteral("LaserOff")));
    QVERIFY(!recogniser.accepts(all.at(7), QStringLiteral("LaserOff")));
    QVERIFY(!recogniser.accepts(all.at(1), QString()));
    QCOMPARE(recogniser.faults().size(), 1);
    QCOMPARE(recogniser.faults().first(),
             QStringLiteral("Broken: the pattern ^Broken\\((\\d+; can't be used: missing closing parenthesis at "
                            "offset 14"));
}

void TestProgram::programsAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no lines") << QByteArray() << "";
    QTest::newRow("one empty line") << QByteArray("\n") << "|";
    QTest::newRow("no last end") << QByteArray("a\n\tb") << "a|\tb|";
    QTest::newRow("both ends") << QByteArray("a\r\n\r\nb\n\n") << "a||b||";
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBFOn();\n") << "On();|";
    QTest::newRow("beyond 16 bit") << QByteArray("// \xE4\xB8\xAD\xF0\x9F\x94\xA5\n") << QString::fromUtf8("// 中🔥|");
    QTest::newRow("carriage return") << QByteArray("a\nb\rc\n") << ":2: has a line break inside";
    QTest::newRow("carriage return at the end") << QByteArray("a\r") << ":1: has a line break inside";
    QTest::newRow("paragraph") << QByteArray("a\xE2\x80\xA9") << ":1: has a line break inside";
    QTest::newRow("zero") << QByteArray("a\n\nb\0", 5) << ":3: has a control character (code 0)";
    QTest::newRow("C1") << QByteArray("\xC2\x85") << ":1: has a control character (code 133)";
    QTest::newRow("stray byte") << QByteArray("a\nb\xFF\nc") << ":2: is not in UTF-8";
    QTest::newRow("cut short") << QByteArray("a\nb\n\xE4\xB8") << ":3: is not in UTF-8";
    QTest::newRow("overlong") << QByteArray("\xC0\xAF") << ":1: is not in UTF-8";
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << ":1: is not in UTF-8";
    QTest::newRow("17 MiB") << QByteArray(17 * 1024 * 1024, '\n') << ": is larger than 16 MiB";
}

/// Expected are the lines, each with a bar at its end, or what is told behind the file's name.
void TestProgram::programsAreRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    write(bytes);
    FileFault fault;
    const std::optional<QStringList> lines = loadProgram(path(), &fault);
    if (!lines) {
        QCOMPARE(fault.message(), path() + expected);
        return;
    }
    QString text;
    for (const QString& line : *lines) {
        text += line + QLatin1Char('|');
    }
    QCOMPARE(text, expected);
}

void TestProgram::refusedProgramsLeaveTheFile_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QString& line, const char* reason) {
        QTest::newRow(name) << QStringList({QStringLiteral("new"), line}) << QString::fromLatin1(reason);
    };
    row("line break", "a\nb", "line 2: has a line break inside");
    row("escape", "\x1b", "line 2: has a control character (code 27)");
    row("lone surrogate", QString(QChar(0xD800)), "line 2: has half a surrogate pair");
    row("too long", QString(kLongestLine + 1, QLatin1Char('a')), "line 2: has more than 4096 characters");
    QStringList many;
    for (qint64 bytes = 0; bytes <= kLargestFile; bytes += kLongestLine) {
        many.append(QString(kLongestLine, QLatin1Char('a')));
    }
    QTest::newRow("too large") << many << "the program is larger than 16 MiB";
}

void TestProgram::refusedProgramsLeaveTheFile()
{
    QFETCH(QStringList, lines);
    write("old\n");
    QTEST(saveProgram(path(), lines), "reason");
    FileFault fault;
    QCOMPARE(loadProgram(path(), &fault), QStringList(QStringLiteral("old")));
    QVERIFY(!saveProgram(m_folder.filePath(QStringLiteral("none/program")), {}).isEmpty());
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
