// Texts into the reader of calls, beside the regular expression that says what a call is. An input is a text, or
// decisions that put one together from pieces that matter.
#include "checks/fuzz/input.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "rl/instructiontext.h"
#include "tests/fakehost.h"

#include <QRegularExpression>

using namespace fuzz;

namespace
{

QString inventText(Dice& dice)
{
    const QStringList pieces{
        "(",  ")",  ";",      ",",      "\"", " ", "\t", "\n", "\v", "//", "f1", "_x", "Offs(p1,1,2,3)",
        "\r", "\f", "\u00a0", "\u0085", "[",  "]", "%1"};
    QString text;
    for (int i = dice.below(24); i > 0; --i) {
        switch (dice.below(6)) {
        case 0:
            text += QChar(static_cast<ushort>(dice.below(0x10000)));
            break;
        case 1:
            text += anyText(dice);
            break;
        default:
            text += dice.oneOf(pieces);
        }
    }
    return dice.below(2) == 0 ? text : "f(" + text + ");";
}

/// The pieces between the commas in no parentheses.
QStringList piecesOf(const QString& arguments)
{
    QStringList pieces{QString()};
    int depth = 0;
    for (const QChar c : arguments) {
        depth = c == '(' ? depth + 1 : c == ')' ? qMax(0, depth - 1) : depth;
        if (c == ',' && depth == 0) {
            pieces.append(QString());
        } else {
            pieces.last() += c;
        }
    }
    for (QString& piece : pieces) {
        piece = piece.trimmed();
    }
    pieces.removeAll(QString());
    return pieces;
}

void checkCall(FakeHost& host, const QString& text)
{
    static const QRegularExpression expression(QStringLiteral(R"(^\s*(\w+)\s*\((.*?)\);?\s*$)"));
    const QRegularExpressionMatch match = expression.match(text);
    QString name = QStringLiteral("old");
    QStringList arguments{name};
    const bool isCall = corvane::util::extractFunctionAndParameters(text, name, arguments);
    require(isCall == match.hasMatch(), "a call is one for the reader or for the expression only");
    require(name == match.captured(1).trimmed(), "a function's name is not the one of the expression");
    require(arguments == piecesOf(match.captured(2).trimmed()), "arguments are not those of the expression");
    require(host.logs.size() == 1, "a text is not logged once");
}

void checkEnds(const QString& text)
{
    for (int length = 0; length <= qMin(2, text.size()); ++length) {
        const QString prefix = text.left(length);
        const QString suffix = text.right(length);
        const QString middle = corvane::util::removePrefixAndSuffix(text, prefix, suffix);
        require(2 * length > text.size() ? middle == text : prefix + middle + suffix == text,
                "what is left without prefix and suffix is not the middle");
        require(length == 0 || corvane::util::removePrefixAndSuffix(text, prefix + text, suffix) == text,
                "a prefix that is not there is taken away");
    }
    require(unwrapQuotes('"' + text + '"') == text, "quotes around a text stay");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FakeHost host;
    const Input input(data, size);
    ByteDice dice = input.dice();
    const QString text = input.holdsDecisions() ? inventText(dice) : QString::fromUtf8(input.text());
    checkCall(host, text);
    checkEnds(text);
    return 0;
}
