#ifndef PAGE_WELDPARAMETERPAGE_H
#define PAGE_WELDPARAMETERPAGE_H

#include <QWidget>

class WeldSettingPage;

/// The welding parameter page: process parameter sets and parameter match tables.
/// It is still an empty page.
class WeldParameterPage : public QWidget
{
    Q_OBJECT

public:
    /// settingPage: the page whose main switch forbids changes while welding is enabled.
    WeldParameterPage(WeldSettingPage* settingPage, QWidget* parent);

    void initStyle();
};

#endif
