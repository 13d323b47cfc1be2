// Reading program lines, beside one regular expression that does the same.

#include "bench/benchtable.h"
#include "rl/callscanner.h"

#include <QRegularExpression>

namespace
{

struct Line {
    const char* name;
    QString text;
};

QVector<Line> lines()
{
    return {
        {"LaserOn", QStringLiteral("LaserOn(\"LsData1\", 250);")},
        {"LsMoveL with Offs", QStringLiteral("LsMoveL(Offs(p12,10,0,-2.5), v100, z10, tool0, wobj0);")},
        {"LsMoveCF", QStringLiteral("LsMoveCF(p1, p2, 360, \"RotAxis\", v100, z10, tool0, wobj0);")},
        {"long", "LsMoveC(RelTool(p1,1.25,2.5,3.75,90,-45,180), " + QStringLiteral("p1234567890,").repeated(40) +
                     " tool0, wobj0);"},
        {"refused", QStringLiteral("LsMoveL(p1, v100, z10, tool0, wobj0); // to the seam")},
    };
}

struct Split {
    QString name;
    QStringList arguments;
};

Split splitByExpression(const QString& text)
{
    static const QRegularExpression expression(QStringLiteral(R"(^\s*(\w+)\s*\((.*?)\);?\s*$)"));
    const QRegularExpressionMatch match = expression.match(text);
    if (!match.hasMatch()) {
        return {};
    }
    Split split{match.captured(1).trimmed(), {}};
    const QString arguments = match.captured(2).trimmed();
    int depth = 0;
    int begin = 0;
    const auto append = [&](int end) {
        const QString piece = arguments.mid(begin, end - begin).trimmed();
        if (!piece.isEmpty()) {
            split.arguments.append(piece);
        }
    };
    for (int i = 0; i < arguments.size(); ++i) {
        const QChar c = arguments.at(i);
        if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')') && depth > 0) {
            --depth;
        } else if (c == QLatin1Char(',') && depth == 0) {
            append(i);
            begin = i + 1;
        }
    }
    append(arguments.size());
    return split;
}

Split splitByHand(const QString& text)
{
    const std::optional<CallText> call = scanCall(text);
    return call ? Split{call->name.toString(), splitArguments(call->arguments)} : Split();
}

} // namespace

void addInstructionRows(BenchTable& table)
{
    const QVector<Line> all = lines();
    for (const Line& line : all) {
        const QString text = line.text;
        table.row(repeated(QStringLiteral("program line split: %1").arg(QLatin1String(line.name)),
                           [text] { splitByHand(text); }),
                  repeated(QStringLiteral("the same by one regular expression"), [text] { splitByExpression(text); }),
                  1.0);
    }
}
