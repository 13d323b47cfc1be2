#ifndef PAGE_WELDIOPAGE_H
#define PAGE_WELDIOPAGE_H

#include <QWidget>

class WeldSettingPage;

/// The weld I/O mapping page: assigns each laser-welding signal to a controller port.
/// It is still an empty page.
class WeldioPage : public QWidget
{
    Q_OBJECT

public:
    /// settingPage: the page whose main switch forbids changes while welding is enabled.
    WeldioPage(WeldSettingPage* settingPage, QWidget* parent);

    void initStyle();
};

#endif
