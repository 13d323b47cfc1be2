#ifndef TESTS_WELDCELL_H
#define TESTS_WELDCELL_H

#include "tests/fakehost.h"

#include <QTest>

/// A controller with some data of each kind.
struct Cell : FakeHost {
    explicit Cell(const QStringList& points = {"p1", "p2"})
    {
        io["point"] = points;
        io["speed"] = QStringList{"v100", "v5"};
        io["zone"] = QStringList{"z10", "fine"};
        io["tool"] = QStringList{"tool0", "gun"};
        io["wobj"] = QStringList{"table", "wobj0"};
        nodes["tool"] = "gun";
        nodes["wobj"] = "wobj0";
    }
};

/// The column "warning" is how the only warning ends; empty: there is none.
inline void checkWarning(const Cell& cell)
{
    QFETCH(QString, warning);
    QCOMPARE(cell.warnings().size(), warning.isEmpty() ? 0 : 1);
    QVERIFY(warning.isEmpty() || cell.warnings().first().endsWith(warning));
}

#endif
