#ifndef PAGE_PAGEBUSINESS_H
#define PAGE_PAGEBUSINESS_H

#include "common/business.h"

#include <QShowEvent>

#include <optional>

/// A configuration page's businesses with the host, one at a time. A page that is shown while one is under way does
/// not ask the host anew, as what is under way may be about to send what the form holds; what it missed is caught up
/// with when the business is over, or when the next one is, if that one was ended by an exception. Last member of its
/// page.
class PageBusiness
{
public:
    /// What becomes of the fields of a page that is shown, or was shown while a business was under way.
    enum class Fields { Reread, Keep };

    /// Does some work as the only business, then catches up with the shows that came meanwhile. False, with nothing
    /// done, while another business is under way.
    /// work: Fields(const Business::Turn&), its result saying whether a show that came meanwhile may reread the fields;
    /// catchUp: void(const Business::Turn&, Fields).
    template <typename Work, typename CatchUp>
    bool conduct(const Work& work, const CatchUp& catchUp)
    {
        const auto turn = m_business.begin();
        if (!turn) {
            return false;
        }
        const Fields allowed = work(*turn);
        while (turn->ownerLives() && m_missed) {
            const Fields wanted = *m_missed;
            m_missed.reset();
            catchUp(*turn, allowed == Fields::Keep ? Fields::Keep : wanted);
        }
        return true;
    }

    /// The page is shown: its fields are read anew, as soon as no business is under way. A window that the window
    /// system restores keeps them.
    template <typename CatchUp>
    void show(const QShowEvent& event, const CatchUp& catchUp)
    {
        if (!event.spontaneous()) {
            m_missed = Fields::Reread;
        } else if (!m_missed) {
            m_missed = Fields::Keep;
        }
        conduct([](const Business::Turn& /*turn*/) { return Fields::Reread; }, catchUp);
    }

    Business::Watch watch() const { return m_business.watch(); }

private:
    std::optional<Fields> m_missed; ///< by the shows that have not been caught up with
    Business m_business;
};

#endif
