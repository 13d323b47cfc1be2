#ifndef PAGE_COMMANDGUARD_H
#define PAGE_COMMANDGUARD_H

#include <QPointer>
#include <QWidget>

/// Marks a page's business with the controller as under way for as long as the guard lives. A host call may
/// spin the event loop, in which the operator presses another button (the page looks at the flag and does
/// nothing) or the host takes the page away (the guard tells, and leaves the flag alone).
class CommandGuard
{
public:
    CommandGuard(QWidget* page, bool* underWay) : m_page(page), m_underWay(underWay) { *m_underWay = true; }
    ~CommandGuard()
    {
        if (m_page) {
            *m_underWay = false;
        }
    }
    Q_DISABLE_COPY(CommandGuard)

    /// To be asked after a command, which may take its time, before the page is touched again.
    bool pageLives() const { return !m_page.isNull(); }

private:
    QPointer<QWidget> m_page;
    bool* m_underWay;
};

#endif
