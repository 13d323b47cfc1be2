#include "simulator/confignodes.h"
#include "simulator/iomodel.h"
#include "simulator/statefile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace sim;

class TestIoModel : public QObject
{
    Q_OBJECT

private slots:
    void usersAreShown();
    void changesAreReadAndKept();

private:
    static QModelIndex cellOf(const IoModel& in, const char* port, IoModel::Column column)
    {
        const QModelIndexList found = in.match(in.index(0, IoModel::Name), Qt::DisplayRole, port, 1, Qt::MatchExactly);
        return found.isEmpty() ? QModelIndex() : in.index(found.first().row(), column);
    }

    FileFault m_fault;
    Cell m_cell = *loadCell(QStringLiteral(SHIPPED_CELL), &m_fault);
};

void TestIoModel::usersAreShown()
{
    SimulatedController controller(m_cell);
    IoModel model(&controller);
    const auto users = [&](const char* port) { return cellOf(model, port, IoModel::UsedBy).data().toString(); };
    QCOMPARE(users("R_JobNumbers"), QStringLiteral("Process JOB [2]"));
    QCOMPARE(users("R_StickFound"), QStringLiteral("Adhesion Detection Feedback [1] (off)"));
    QJsonObject nodes = controller.nodes();
    QJsonObject io = nodes.value(node::kIo).toObject();
    io.insert(QStringLiteral("laser_enable_port"), "DO5");
    io.insert(QStringLiteral("power_port"), "AO99");
    io.insert(QStringLiteral("gas_protect_type"), 1);
    nodes.insert(node::kIo, io);
    controller.setNodes(nodes);
    QCOMPARE(users("DO5"), QStringLiteral("Laser on, Guide laser"));
    QCOMPARE(cellOf(model, "AO99", IoModel::Kind).data(), QVariant("missing"));
    model.setFilter(QStringLiteral("assist gas"));
    QCOMPARE(model.rowCount(), 1);
    model.setFilter(QStringLiteral("r_"));
    model.setOnlyUsed(true);
    QCOMPARE(model.rowCount(), 5);
}

void TestIoModel::changesAreReadAndKept()
{
    SimulatedController controller(m_cell);
    IoModel model(&controller);
    // The register that is changed stands before the one that goes.
    QVERIFY(model.setData(cellOf(model, "R_StickDetect", IoModel::Access), "ro"));
    QVERIFY(!model.setData(cellOf(model, "R_StickDetect", IoModel::Access), "no word"));
    const QModelIndex tick = cellOf(model, "R_JobNumbers", IoModel::Published);
    QVERIFY(model.setData(tick, Qt::Unchecked, Qt::CheckStateRole));
    controller.setRegisterPublished(0, false);
    const QJsonArray published = controller.registers();
    QCOMPARE(published.size(), m_cell.registers.size() - 2);
    QCOMPARE(published.at(1)["rw"], QJsonValue("ro"));

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("state.json"));
    QCOMPARE(saveState(file, controller.nodes(), {}, controller.cell().changes), QString());
    // Loaded beside a cell that lacks a register of the state, and has one that came after it.
    Cell cell = m_cell;
    cell.registers.replace(0, QJsonObject{{"name", "R_New"}, {"type", "bool"}, {"rw", "rw"}, {"len", 1}});
    restoreState(*loadState(file, &m_fault), &cell);
    QCOMPARE(cell.changes.withdrawn, QSet<QString>({"R_JobNumbers"}));
    QCOMPARE(SimulatedController(cell).registers().at(2), published.at(1));
    QVERIFY(model.setData(tick, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(controller.registers().size(), published.size() + 1);
}

QTEST_MAIN(TestIoModel)
#include "tst_iomodel.moc"
