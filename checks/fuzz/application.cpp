#include "checks/fuzz/application.h"

#include "checks/fuzz/leaks.h"

#include <QApplication>
#include <QFontMetrics>

namespace fuzz
{

void startApplication()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    // What the platform and its fonts allocate when they start is never freed.
    const LeaksIgnored ignored;
    // Never destroyed: the widgets of a fuzzer live as long as the process.
    static const auto* const application = new QApplication(argumentCount, arguments);
    Q_UNUSED(application)
    // Fonts are loaded by the first text that is measured.
    QFontMetrics(QApplication::font()).horizontalAdvance(QLatin1Char('0'));
}

} // namespace fuzz
