#ifndef BENCH_PAGESHOW_H
#define BENCH_PAGESHOW_H

#include "bench/benchtable.h"

#include <QCoreApplication>
#include <QWidget>

#include <memory>

/// How pages are shown in all rows.

constexpr QSize kScreen(860, 620); ///< what the pendant leaves to a page, in pixels
constexpr int kShows = 10;         ///< of a page that is shown again: once takes no longer than a blink

inline void showNow(QWidget& page)
{
    page.show();
    QCoreApplication::processEvents();
}

/// Shows a page that was shown before; milliseconds of one show. The page asks its host kShows times.
inline double shownAgainMs(QWidget& page)
{
    double ms = 0;
    for (int i = 0; i < kShows; ++i) {
        page.hide();
        QCoreApplication::processEvents();
        ms += cpuMs([&page] { showNow(page); });
    }
    return ms / kShows;
}

/// Weld I/O's widgets as the page builds them: no sheets, no lists.
std::unique_ptr<QWidget> plainWeldIo();

/// Char. Curve's widgets as the page builds them, without nodes from a controller: no sheets.
std::unique_ptr<QWidget> plainCurves();

#endif
