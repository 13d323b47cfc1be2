#ifndef PAGE_CHARACTERISTICSCURVEPAGE_H
#define PAGE_CHARACTERISTICSCURVEPAGE_H

#include <QWidget>

class WeldSettingPage;

/// The characteristic curves page: relates port values to laser power, wire speed, frequency and duty cycle.
/// It is still an empty page.
class CharacteristicsCurvePage : public QWidget
{
    Q_OBJECT

public:
    /// settingPage: the page whose main switch forbids changes while welding is enabled.
    CharacteristicsCurvePage(WeldSettingPage* settingPage, QWidget* parent);

    void initStyle();
};

#endif
