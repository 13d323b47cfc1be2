#ifndef PAGE_PAGEBUSINESS_H
#define PAGE_PAGEBUSINESS_H

#include "common/business.h"

#include <QShowEvent>

#include <utility>

/// A configuration page's businesses with the host, one at a time. A page that is shown while one is under way does
/// not ask the host anew, as what is under way may be about to send what the form holds; what it missed is caught up
/// with when the business is over. Last member of its page.
class PageBusiness
{
public:
    /// What a page that was shown while a business was under way does about its fields when that is over.
    enum class Fields { Reread, Keep };

    /// Does some work as the only business, then catches up with the shows that came meanwhile. False, with nothing
    /// done, while another business is under way.
    /// work: Fields(const Business::Turn&); catchUp: void(const Business::Turn&, Fields).
    template <typename Work, typename CatchUp>
    bool conduct(const Work& work, const CatchUp& catchUp)
    {
        const auto turn = m_business.begin();
        if (!turn) {
            return false;
        }
        m_shownMeanwhile = false;
        const Fields fields = work(*turn);
        while (turn->ownerLives() && std::exchange(m_shownMeanwhile, false)) {
            catchUp(*turn, fields);
        }
        return true;
    }

    /// The page is shown: what it shows is read anew, as soon as no business is under way. A window that the window
    /// system restores keeps its fields.
    template <typename CatchUp>
    void show(const QShowEvent& event, const CatchUp& catchUp)
    {
        const Fields fields = event.spontaneous() ? Fields::Keep : Fields::Reread;
        const auto work = [&](const Business::Turn& turn) {
            catchUp(turn, fields);
            return fields;
        };
        if (!conduct(work, catchUp)) {
            m_shownMeanwhile = true;
        }
    }

    Business::Watch watch() const { return m_business.watch(); }

private:
    bool m_shownMeanwhile = false;
    Business m_business;
};

#endif
