#include "simulator/confignodes.h"
#include "simulator/iomodel.h"
#include "simulator/simhost.h"
#include "simulator/statefile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace sim;

class TestIoModel : public QObject
{
    Q_OBJECT

private slots:
    void changesAreReadAndKept();
};

void TestIoModel::changesAreReadAndKept()
{
    FileFault fault;
    Cell cell = *loadCell(QStringLiteral(SHIPPED_CELL), &fault);
    SimulatedController controller(cell);
    Journal journal;
    const SimHost host(&controller, &journal);
    IoModel model(&controller);
    const auto cellOf = [](const IoModel& in, const char* port, IoModel::Column column) {
        const QModelIndexList found = in.match(in.index(0, IoModel::Name), Qt::DisplayRole, port, 1, Qt::MatchExactly);
        return found.isEmpty() ? QModelIndex() : in.index(found.first().row(), column);
    };
    const auto users = [&](const char* port) { return cellOf(model, port, IoModel::UsedBy).data().toString(); };
    QCOMPARE(users("R_JobNumbers"), QStringLiteral("Process JOB [2]"));
    QCOMPARE(users("R_StickFound"), QStringLiteral("Adhesion Detection Feedback [1] (off)"));
    QJsonObject nodes = controller.nodes();
    QJsonObject io = nodes.value(node::kIo).toObject();
    io.insert(QStringLiteral("laser_enable_port"), "DO5");
    nodes.insert(node::kIo, io);
    controller.setNodes(nodes);
    QCOMPARE(users("DO5"), QStringLiteral("Laser on, Guide laser"));
    model.setFilter(QStringLiteral("LASER ON"));
    QCOMPARE(model.rowCount(), 1);
    model.setFilter(QStringLiteral("r_"));
    model.setOnlyUsed(true);
    QCOMPARE(model.rowCount(), 5);

    // The register that is changed stands before the one that goes.
    QVERIFY(model.setData(cellOf(model, "R_StickDetect", IoModel::Access), "ro"));
    model.setData(cellOf(model, "R_StickDetect", IoModel::Access), "no word");
    QVERIFY(model.setData(cellOf(model, "R_JobNumbers", IoModel::Published), Qt::Unchecked, Qt::CheckStateRole));
    const QJsonArray published = pendixInterface()->getRegisterValue().toArray();
    QCOMPARE(published.size(), cell.registers.size() - 1);
    QCOMPARE(published.at(2)["rw"], QJsonValue("ro"));
    QVERIFY(!pendixInterface()->getRegisterHash().contains("R_JobNumbers"));

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("state.json"));
    QCOMPARE(saveState(file, nodes, {}, controller.registers()), QString());
    // Loaded beside a cell that lacks a register of the state.
    cell.registers.removeFirst();
    restoreState(*loadState(file, &fault), &cell);
    SimulatedController next(cell);
    QCOMPARE(QSet<QString>(cell.withdrawn), QSet<QString>({"R_JobNumbers"}));
    QVERIFY(next.registers().contains(published.first()) && next.registers().contains(published.at(2)));
    QCOMPARE(next.registers().size(), published.size());
    IoModel nextModel(&next);
    const QModelIndex tick = cellOf(nextModel, "R_JobNumbers", IoModel::Published);
    QCOMPARE(tick.data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Unchecked));
    QVERIFY(nextModel.setData(tick, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(next.registers().size(), published.size() + 1);
}

QTEST_MAIN(TestIoModel)
#include "tst_iomodel.moc"
