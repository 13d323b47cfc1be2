#include "simulator/journalmodel.h"
#include "simulator/journalview.h"

#include <QTableView>
#include <QtTest>

#include <ctime>

using namespace sim;

namespace
{
const QString kPlugin = QStringLiteral("plug-in");
}

class TestJournal : public QObject
{
    Q_OBJECT

private slots:
    void marksUntoldCommands();
    void countsEqualReads();
    void filterAndCopy();
    void staysQuick();
};

/// A script of what happens, a letter each: c command with its answer, ( a command and ) the answer to the last one, m
/// message, o another plug-in's, r read, . back in the event loop. Expected is, per command, T told or U untold.
void TestJournal::marksUntoldCommands()
{
    const QPair<QString, QString> rows[] = {
        {"cm.", "T"},      // message after the answer
        {"crrm.", "T"},    // message after more reads
        {"c.", "U"},       // nothing
        {"c.m.", "U"},     // message too late
        {"mc.", "U"},      // message before
        {"ccm.", "UT"},    // the next command closes the first
        {"com.", "T"},     // another plug-in's words
        {"co.", "U"},      // only another plug-in's words
        {"(.c.)m.", "TU"}, // one from within another
    };
    for (const auto& [script, verdicts] : rows) {
        Journal journal;
        QVector<int> open;
        for (const QChar step : script) {
            if (step == QLatin1Char('c') || step == QLatin1Char('(')) {
                open.append(journal.addCommand(kPlugin, QStringLiteral("save"), 1, {}));
            }
            if (step == QLatin1Char('c') || step == QLatin1Char(')')) {
                journal.addAnswer(open.takeLast(), {});
            } else if (step == QLatin1Char('m') || step == QLatin1Char('o')) {
                journal.addMessage(step == QLatin1Char('m') ? kPlugin : QStringLiteral("other"),
                                   QStringLiteral("error"), QStringLiteral("words"));
            } else if (step == QLatin1Char('r')) {
                journal.addRead(QStringLiteral("level"), 3);
            } else if (step == QLatin1Char('.')) {
                QCoreApplication::processEvents();
            }
        }
        QString found;
        for (int i = 0; i < journal.size(); ++i) {
            if (journal.at(i).kind == EntryKind::Command) {
                found += journal.at(i).untold ? QLatin1Char('U') : QLatin1Char('T');
                QCOMPARE(journal.line(i).contains(QLatin1String("[operator was told nothing]")), journal.at(i).untold);
            }
        }
        QVERIFY2(found == verdicts, qPrintable(script + ": " + found));
    }
}

void TestJournal::countsEqualReads()
{
    Journal journal;
    for (int i = 0; i < 3; ++i) {
        journal.addRead(QStringLiteral("zoom"), 1.0);
    }
    journal.addRead(QStringLiteral("zoom"), 2.0);
    journal.addRead(QStringLiteral("zoom"), QJsonValue::Undefined);
    QCOMPARE(journal.size(), 3);
    QVERIFY(journal.line(0).contains(QLatin1String("[3 times]")));
    QCOMPARE(journal.at(2).text, QStringLiteral("(nothing)"));
    // Long ones are told apart by their ends, which stay.
    const QString text(5000, QLatin1Char('x'));
    for (const char end : {'1', '2', '2'}) {
        journal.addRead(QStringLiteral("node"), text + QLatin1Char(end));
    }
    QCOMPARE(journal.size(), 5);
    QVERIFY(journal.line(3).endsWith(text + QLatin1String("1\"")));
    QVERIFY(journal.line(4).contains(QLatin1String("[2 times]")));
}

void TestJournal::filterAndCopy()
{
    Journal journal;
    JournalView view(&journal);
    journal.addRead(QStringLiteral("level"), 3);
    const int command = journal.addCommand(kPlugin, QStringLiteral("save"), QJsonObject{{QStringLiteral("a"), 1}},
                                           QStringLiteral("Page"));
    journal.addAnswer(command, {});
    view.model()->setShown(EntryKind::Read, false);
    view.model()->setShown(EntryKind::Answer, false);
    journal.addLog({}, QStringLiteral("error"), QStringLiteral("line"));
    journal.addRead(QStringLiteral("power"), false);
    QCOMPARE(view.model()->rowCount(), 2);
    // The mark arrives in the row of the command, wherever the filter has put it.
    QSignalSpy changes(view.model(), &QAbstractItemModel::dataChanged);
    QTRY_COMPARE(changes.size(), 1);
    QCOMPARE(changes.first().first().toModelIndex().row(), 0);
    QCOMPARE(view.model()->index(0, JournalModel::Kind).data().toString(), JournalModel::untoldMark());
    const QStringList lines = view.selectedText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).startsWith(QLatin1String("2\t")));
    QVERIFY(
        lines.at(0).endsWith(QLatin1String("\t[operator was told nothing]\tfor plug-in from Page\tsave\t{\"a\":1}")));
    view.findChild<QTableView*>()->selectRow(1);
    QCOMPARE(view.selectedText().count(QLatin1Char('\n')), 1);
    QVERIFY(view.selectedText().contains(QLatin1String("\tline")));
}

void TestJournal::staysQuick()
{
    // In processor time: ten times the rows take ten times as long, or a hundred times if the work per row grows
    // with the length of the table.
    Journal journal;
    JournalView view(&journal);
    view.show();
    const auto fill = [&journal](int size) {
        while (journal.size() < size) {
            journal.addRead(QStringLiteral("value"), journal.size());
            if (journal.size() % 1000 == 0) {
                QCoreApplication::processEvents();
            }
        }
        return std::clock();
    };
    const std::clock_t start = fill(0);
    const std::clock_t tenth = fill(10000) - start;
    const double ratio = static_cast<double>(fill(100000) - start) / static_cast<double>(tenth);
    QVERIFY2(ratio < 40.0, qPrintable(QString::number(ratio)));
    view.model()->setShown(EntryKind::Command, false);
    QCoreApplication::processEvents();
    QCOMPARE(view.model()->rowCount(), 100000);
    QCOMPARE(view.findChild<QTableView*>()->rowAt(0) > 99000, true);
}

QTEST_MAIN(TestJournal)
#include "tst_journal.moc"
