#ifndef SIMULATOR_LAYOUTCHECK_H
#define SIMULATOR_LAYOUTCHECK_H

#include <QString>
#include <QVector>

class QWidget;

namespace sim
{

/// Something that a person at the pendant can't read or reach, or sees to be askew.
struct LayoutFault {
    enum class Kind {
        CutText,        ///< a text or picture is wider or higher than what its widget leaves for it
        Outside,        ///< a widget is partly outside one of those that it lies in, which does not scroll
        SidewaysScroll, ///< a page must be scrolled sideways to be seen whole
        Overlap,        ///< two widgets of one parent cover each other
        FaintText,      ///< a label's text has less than kLeastContrast to what is behind it
        SmallTarget,    ///< what has to be touched is under kLeastTarget pixels wide or high
        Uneven          ///< one of the fields below each other is more than kUnevenness higher than another
    };

    Kind kind;
    QString widget; ///< its object name, its class when it has none
    QString words;  ///< the whole finding in one line, with path, class and text of the widget
};

/// The least width and height of what a finger has to hit.
constexpr int kLeastTarget = 24;

/// The least contrast of a text to its background: what a person with weak eyes still reads.
constexpr double kLeastContrast = 4.5;

/// So much the heights of fields in one column may differ, in pixels: styles give a list and a number not quite the
/// same.
constexpr int kUnevenness = 3;

/// What is wrong with the layout of a visible widget and all that can be seen in it. Knows widgets by Qt's classes and
/// by the names of others', so that it works on the pages of any plug-in. The layouts must have settled. Scroll bars
/// and the step buttons of spin boxes are no targets: pages are scrolled, and numbers typed, without them.
QVector<LayoutFault> layoutFaults(QWidget* root);

} // namespace sim

#endif
