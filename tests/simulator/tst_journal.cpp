#include "simulator/journalmodel.h"
#include "simulator/journalview.h"

#include <QTableView>
#include <QtTest>

using namespace sim;

class TestJournal : public QObject
{
    Q_OBJECT

private slots:
    void marksUntoldCommands_data();
    void marksUntoldCommands();
    void answerFromWithinAnAnswer();
    void countsEqualReads();
    void longReadsStayWhole();
    void filterAndCopy();
    void staysQuick();
};

/// A script of what happens, a letter each: c command with its answer, m message, r read, . back in the event
/// loop. Expected is, per command, T told or U untold.
void TestJournal::marksUntoldCommands_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("verdicts");
    QTest::newRow("message after the answer") << "cm."
                                              << "T";
    QTest::newRow("message after more reads") << "crrm."
                                              << "T";
    QTest::newRow("nothing") << "c."
                             << "U";
    QTest::newRow("message too late") << "c.m."
                                      << "U";
    QTest::newRow("message before") << "mc."
                                    << "U";
    QTest::newRow("the next command closes the first") << "ccm."
                                                       << "UT";
    QTest::newRow("each its own") << "cm.c.cm."
                                  << "TUT";
}

void TestJournal::marksUntoldCommands()
{
    QFETCH(QString, script);
    QFETCH(QString, verdicts);
    Journal journal;
    for (const QChar step : script) {
        if (step == QLatin1Char('c')) {
            journal.addAnswer(journal.addCommand(QStringLiteral("save"), 1), {});
        } else if (step == QLatin1Char('m')) {
            journal.addMessage(QStringLiteral("plug-in"), QStringLiteral("error"), QStringLiteral("words"));
        } else if (step == QLatin1Char('r')) {
            journal.addRead(QStringLiteral("level"), 3);
        } else {
            QCoreApplication::processEvents();
        }
    }
    QString found;
    for (int i = 0; i < journal.size(); ++i) {
        if (journal.at(i).kind == EntryKind::Command) {
            found += journal.at(i).untold ? QLatin1Char('U') : QLatin1Char('T');
            QCOMPARE(journal.summary(i, 10).startsWith(QLatin1String("[operator was told nothing]")),
                     journal.at(i).untold);
        }
    }
    QCOMPARE(found, verdicts);
}

void TestJournal::answerFromWithinAnAnswer()
{
    // While one command waits in the event loop another comes and goes; each is judged by what follows its own answer.
    Journal journal;
    const int outer = journal.addCommand(QStringLiteral("outer"), {});
    QCoreApplication::processEvents();
    journal.addAnswer(journal.addCommand(QStringLiteral("inner"), {}), {});
    QCoreApplication::processEvents();
    journal.addAnswer(outer, {});
    journal.addMessage(QStringLiteral("plug-in"), {}, QStringLiteral("Saved"));
    QVERIFY(!journal.at(outer).untold);
    QVERIFY(journal.at(outer + 1).untold);
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
    QCOMPARE(journal.summary(0, 10), QStringLiteral("[3 times] zoom: 1"));
    QCOMPARE(journal.at(2).text, QStringLiteral("(nothing)"));
}

void TestJournal::longReadsStayWhole()
{
    Journal journal;
    const QString text(5000, QLatin1Char('x'));
    journal.addRead(QStringLiteral("node"), text + QLatin1Char('1'));
    journal.addRead(QStringLiteral("node"), text + QLatin1Char('2'));
    journal.addRead(QStringLiteral("node"), text + QLatin1Char('2'));
    QCOMPARE(journal.size(), 2);
    QVERIFY(journal.line(0).endsWith(text + QLatin1String("1\"")));
    QVERIFY(journal.line(1).endsWith(text + QLatin1String("2\"")));
    QVERIFY(journal.summary(1, 10).startsWith(QLatin1String("[2 times] node: \"xxx")));
}

void TestJournal::filterAndCopy()
{
    Journal journal;
    JournalView view(&journal);
    journal.addRead(QStringLiteral("level"), 3);
    const int command = journal.addCommand(QStringLiteral("save"), QJsonObject{{QStringLiteral("a"), 1}});
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
    const QStringList lines = view.selectedText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).startsWith(QLatin1String("2\t")));
    QVERIFY(lines.at(0).endsWith(QLatin1String("\t[operator was told nothing]\tsave\t{\"a\":1}")));
    view.findChild<QTableView*>()->selectRow(1);
    QCOMPARE(view.selectedText().count(QLatin1Char('\n')), 1);
    QVERIFY(view.selectedText().contains(QLatin1String("\tline")));
}

void TestJournal::staysQuick()
{
    // Work that grew with the length of the table would take minutes here.
    Journal journal;
    JournalView view(&journal);
    view.show();
    for (int i = 0; i < 100000; ++i) {
        journal.addRead(QStringLiteral("value"), i);
        if (i % 1000 == 0) {
            QCoreApplication::processEvents();
        }
    }
    view.model()->setShown(EntryKind::Command, false);
    QCoreApplication::processEvents();
    QCOMPARE(view.model()->rowCount(), 100000);
    QCOMPARE(view.findChild<QTableView*>()->rowAt(0) > 99000, true);
}

QTEST_MAIN(TestJournal)
#include "tst_journal.moc"
