#include "rl/rllaserwelddefine.h"
#include "simulator/cellfile.h"
#include "simulator/program/instructionwriter.h"
#include "simulator/simhost.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <random>

using namespace sim;

/// The package's instructions in the simulator's program editor: whatever an editor can write is recognised, and its
/// property editor reads it and writes it again.
class TestRoundTrips : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void defaultLines();
    void producibleLines_data();
    void producibleLines();

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    void fillAnyhow(QWidget* editor);
    QString anyPointName();
    const pendix::RlInstruction& instruction(const char* name) const;

    std::mt19937 m_random{4};
    std::unique_ptr<SimulatedController> m_controller;
    Journal m_journal;
    std::unique_ptr<SimHost> m_host;
    QList<pendix::RlInstruction> m_instructions;
};

void TestRoundTrips::initTestCase()
{
    FileFault fault;
    std::optional<Cell> cell = loadCell(SHIPPED_CELL, &fault);
    QVERIFY2(cell.has_value(), qPrintable(fault.message()));
    m_controller = std::make_unique<SimulatedController>(*std::move(cell));
    m_host = std::make_unique<SimHost>(m_controller.get(), &m_journal);
    const RlLaserWeldDefine registrar(nullptr);
    m_instructions = pendix::RlRegistry::instance().instructions();
    QCOMPARE(m_instructions.size(), 10);
}

const pendix::RlInstruction& TestRoundTrips::instruction(const char* name) const
{
    const auto found = std::find_if(m_instructions.cbegin(), m_instructions.cend(),
                                    [name](const pendix::RlInstruction& each) { return each.name == name; });
    return found != m_instructions.cend() ? *found : (qFatal("no %s", name), *found);
}

void TestRoundTrips::defaultLines()
{
    const Recogniser recogniser(m_instructions);
    QVERIFY2(recogniser.faults().isEmpty(), qPrintable(recogniser.faults().join("; ")));
    int defaults = 0;
    for (const pendix::RlInstruction& each : qAsConst(m_instructions)) {
        if (each.defaultLine.isEmpty()) {
            continue;
        }
        ++defaults;
        for (const QString& line : {each.defaultLine, "  " + each.defaultLine + " // as it comes"}) {
            QVERIFY2(recogniser.accepts(each, line), qPrintable(line));
            // The templates put a blank after their commas, which the wire instructions' default lines lack.
            const RoundTrip trip = tryRoundTrip(each, line);
            QCOMPARE(QString(trip.after).remove(' '), trip.before);
        }
    }
    QCOMPARE(defaults, 7);
}

QString TestRoundTrips::anyPointName()
{
    const QString letters = QStringLiteral("pPq_01297%1.-+*/'[]{}:#$^焊é ");
    QString name(QLatin1Char('p'));
    for (int left = below(6); left > 0; --left) {
        name.append(letters.at(below(letters.size())));
    }
    // The editors refuse one with a blank at its end or a comment in it.
    return name.trimmed().replace("//", "/");
}

void TestRoundTrips::fillAnyhow(QWidget* editor)
{
    for (auto* button : editor->findChildren<QPushButton*>()) {
        if (below(3) == 0) {
            button->click();
        }
    }
    for (auto* box : editor->findChildren<QComboBox*>()) {
        if (box->isEditable()) {
            box->setCurrentText(anyPointName());
        } else {
            box->setCurrentIndex(below(box->count()));
        }
    }
    for (auto* box : editor->findChildren<QSpinBox*>()) {
        box->setValue(box->minimum() + below(box->maximum() - box->minimum() + 1));
    }
    for (auto* box : editor->findChildren<QDoubleSpinBox*>()) {
        const double share = below(1000001) / 1e6;
        const double scale = std::pow(10.0, -below(9));
        box->setValue((box->minimum() + share * (box->maximum() - box->minimum())) * scale);
    }
}

void TestRoundTrips::producibleLines_data()
{
    QTest::addColumn<QString>("name");
    for (const pendix::RlInstruction& each : qAsConst(m_instructions)) {
        QTest::newRow(qPrintable(each.name)) << each.name;
    }
}

void TestRoundTrips::producibleLines()
{
    QFETCH(QString, name);
    const pendix::RlInstruction& each = instruction(qPrintable(name));
    const Recogniser recogniser(m_instructions);
    QString fault;
    const auto editor = createEditor(each, EditorRole::Insert, &fault);
    QVERIFY2(editor != nullptr, qPrintable(fault));
    QSet<QString> lines;
    for (int i = 0; i < 30; ++i) {
        fillAnyhow(editor.get());
        const WrittenLine line = writeLine(editor.get(), EditorRole::Insert, each, recogniser, 5);
        QVERIFY2(line.refusal.isEmpty(), qPrintable(line.refusal));
        const RoundTrip trip = tryRoundTrip(each, line.text);
        QVERIFY2(trip.fault.isEmpty(), qPrintable(trip.fault));
        QCOMPARE(trip.after, trip.before);
        QCOMPARE(trip.before, line.text);
        lines.insert(line.text);
    }
    // Otherwise the loop would have proved nothing.
    QVERIFY(lines.size() >= (name.endsWith("Off") ? 1 : 10));
}

QTEST_MAIN(TestRoundTrips)
#include "tst_roundtrips.moc"
