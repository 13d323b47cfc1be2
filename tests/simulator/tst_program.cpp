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
    void linesAreTakenApart();
    void linesAreRecognised();
    void acceptsOnlyItsOwn();
    void programsAreRead();
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

void TestProgram::linesAreTakenApart()
{
    const struct {
        QString code, comment, name;
    } rows[] = {
        {" \t", "", ""},
        {"", "  // Off();", ""},
        {" LaserOff  ", "", "LaserOff"},
        {"\tOn (\"a\"); /", " \t//b // \"c", "On"},
        {"On(\"http://a\");", "// \"", "On"},
        {"On(\"a // b", "", "On"},
        {"On(\"a\"", "//\"b\"", "On"},
    };
    for (const auto& [code, comment, name] : rows) {
        const InstructionLine line = splitLine(code + comment);
        QCOMPARE(line.code, code);
        QCOMPARE(line.comment, comment);
        QCOMPARE(instructionName(code + comment), name);
    }
}

void TestProgram::linesAreRecognised()
{
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
        {" \t", ""},
        {"  // LaserOff", ""},
    };
    const Recogniser recogniser(registered());
    for (const auto& [text, name] : rows) {
        QString line = text;
        const pendix::RlInstruction* found = recogniser.find(line);
        QVERIFY2((found == nullptr ? QString() : found->name) == name, text);
        QCOMPARE(Recogniser::isBlank(text), line.remove(QStringLiteral("// LaserOff")).trimmed().isEmpty());
    }
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

/// Expected are the lines, each with a bar at its end, or what is told behind the file's name.
void TestProgram::programsAreRead()
{
    const QPair<QByteArray, QString> rows[] = {
        {"", ""},
        {"\n", "|"},
        {"a\n\tb", "a|\tb|"},
        {"a\r\n\r\nb\n\n", "a||b||"},
        {"\xEF\xBB\xBFOn();\n", "On();|"},
        {"// \xE4\xB8\xAD\xF0\x9F\x94\xA5\n", QString::fromUtf8("// 中🔥|")},
        {"a\nb\rc\n", ":2: has a line break inside"},
        {"a\r", ":1: has a line break inside"},
        {"a\xE2\x80\xA9", ":1: has a line break inside"},
        {QByteArray("a\n\nb\0", 5), ":3: has a control character (code 0)"},
        {"\xC2\x85", ":1: has a control character (code 133)"},
        {"a\nb\xFF\nc", ":2: is not in UTF-8"},
        {"a\nb\n\xE4\xB8", ":3: is not in UTF-8"},
        {"\xC0\xAF", ":1: is not in UTF-8"},
        {"\xED\xA0\x80", ":1: is not in UTF-8"},
        {QByteArray(17 * 1024 * 1024, '\n'), ": is larger than 16 MiB"},
    };
    for (const auto& [bytes, expected] : rows) {
        write(bytes);
        FileFault fault;
        const std::optional<QStringList> lines = loadProgram(path(), &fault);
        QString text = lines ? QString() : fault.message().remove(path());
        for (const QString& line : lines.value_or(QStringList())) {
            text += line + QLatin1Char('|');
        }
        QCOMPARE(text, expected);
    }
}

void TestProgram::refusedProgramsLeaveTheFile()
{
    QStringList many;
    for (qint64 bytes = 0; bytes <= kLargestFile; bytes += kLongestLine) {
        many.append(QString(kLongestLine, QLatin1Char('a')));
    }
    const QPair<QStringList, QString> rows[] = {
        {{"new", "a\nb"}, "line 2: has a line break inside"},
        {{"new", "\x1b"}, "line 2: has a control character (code 27)"},
        {{"new", QString(QChar(0xD800))}, "line 2: has half a surrogate pair"},
        {{"new", QString(kLongestLine + 1, QLatin1Char('a'))}, "line 2: has more than 4096 characters"},
        {many, "the program is larger than 16 MiB"},
    };
    write("old\n");
    FileFault fault;
    for (const auto& [lines, reason] : rows) {
        QCOMPARE(saveProgram(path(), lines), reason);
        QCOMPARE(loadProgram(path(), &fault), QStringList(QStringLiteral("old")));
    }
    QVERIFY(!saveProgram(m_folder.filePath(QStringLiteral("none/program")), {}).isEmpty());
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
