// All benchmarks as one table. An argument runs only the rows that contain it. Ends non-zero when a limit isn't held.

#include "bench/benchtable.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <stdexcept>

int main(int count, char** words)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    const QApplication application(count, words);
    // The package writes its log below the working folder, and each line also to the error output.
    const QTemporaryDir folder;
    if (!QDir::setCurrent(folder.path()) || std::freopen("/dev/null", "w", stderr) == nullptr) {
        return 1;
    }
    BenchTable table(QApplication::arguments().value(1));
    try {
        addCatalogueRows(table);
        addInstructionRows(table);
        addLogRows(table);
        addPageRows(table);
        addWeldIoRows(table);
        addCurveRows(table);
    } catch (const std::logic_error& fault) {
        std::printf("bench: not as it should be: %s\n", fault.what());
        return 1;
    }
    std::puts(table.allHeld() ? "bench: ok, all limits held" : "bench: a limit is not held, or nothing was run");
    return table.allHeld() ? 0 : 1;
}
