#ifndef PAGE_LASERTRACKINGPAGE_H
#define PAGE_LASERTRACKINGPAGE_H

#include <QWidget>

/// The frame into which the page of the seam-tracking plug-in is embedded.
/// It is still an empty page.
class LaserTrackingPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserTrackingPage(QWidget* parent);

    void initStyle();
};

#endif
