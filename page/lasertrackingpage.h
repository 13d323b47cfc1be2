#ifndef PAGE_LASERTRACKINGPAGE_H
#define PAGE_LASERTRACKINGPAGE_H

#include "common/business.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui
{
class LaserTrackingPage;
}

/// The frame into which the page of the seam-tracking plug-in is embedded. That plug-in may load later than this
/// one: the host is asked again every 200 ms, 26 times in all. A plug-in that never comes leaves the page empty; only
/// log lines tell.
class LaserTrackingPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserTrackingPage(QWidget* parent);
    ~LaserTrackingPage() override;

    /// Asks for the widget unless there is one, and puts it in its place. A call while a retry is due takes its
    /// turn; a call after the last retry asks once more, a call while the host is being asked does nothing.
    void embedLaserTrackPage();
    void initStyle(); ///< The same as embedLaserTrackPage.

protected:
    void showEvent(QShowEvent* event) override;

private:
    bool obtainWidget();
    void retryLater(int code);
    void place(QWidget* widget);
    void refreshStack();

    std::unique_ptr<Ui::LaserTrackingPage> ui;
    /// A child of this page once embedded; its plug-in may take it away again.
    QPointer<QWidget> trackWidget;
    int retryCount = 0; ///< attempts that failed since the last success
    QTimer m_retry;     ///< the one that is pending: several causes to ask must not start several series
    Business m_business;
};

#endif
