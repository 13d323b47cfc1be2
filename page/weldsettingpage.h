#ifndef PAGE_WELDSETTINGPAGE_H
#define PAGE_WELDSETTINGPAGE_H

#include "page/pagebusiness.h"
#include "widgets/formfields.h"
#include "widgets/stylekey.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QWidget>

#include <memory>
#include <optional>

namespace Ui
{
class WeldSettingPage;
}

/// The device setting page: edits the controller node "weld_setting_config" (times in ms, speeds in mm/s,
/// distances in mm, power in W) and carries the main switch, which turns laser welding on and off in the
/// controller. While welding is on, or while the operator's level is 2 or lower, nothing can be edited.
class WeldSettingPage : public QWidget
{
    Q_OBJECT

public:
    explicit WeldSettingPage(QWidget* parent);
    ~WeldSettingPage() override;

    /// Whether the main switch is on, that is whether welding is enabled. Other pages ask before they save.
    bool getMainBtnStatus();

    /// Enables or disables the setting frames, Cancel and Save. The main switch stays as it is.
    void setAllPlaneStatus(bool enabled);

    /// The save command: {"set_weld_setting_config": {...}} with the form's current values.
    QJsonObject saveServerConfigToJson();

    /// Fills the form from the node without emitting anything; a value that is no object changes nothing.
    void loadServerConfigFromJson(const QJsonValue& config);

    /// Whether the laser detect time is not below the laser check out time; tells the operator if it is.
    bool validateLaserCheckTime() const;

    /// Enables the restart fields, and the feeder fields as their switch says.
    void initPlaneStatus();

    /// Judges a save's result array and tells the operator; see reportOutcome.
    void checkSaveResult(const QJsonArray& result, const QString& key);

    void initConnect();

    /// Sheets, fonts and row heights for the screen the page is on; nothing when they are in place already.
    void initStyle();

signals:
    /// Part of the interface towards an embedding page; the page itself does not emit it.
    void setMainEnable(bool enabled);

public slots:
    void setRetractionPlanStatus(bool isOn);
    void setWireStickingPlanStatus(bool isOn);
    void setFeederPlanStatus(bool isOn);

    /// Carries out a flip of the main switch in the controller; puts the switch back when that fails.
    void onSwitchMain(bool isOn);

protected:
    /// Reads catalogue and node anew and derives from them what can be edited. A show while a business is under way
    /// reads nothing; all that is made up for when the business is over, but a refused or unanswered save keeps the
    /// fields. A window that the window system restores keeps the fields, too.
    void showEvent(QShowEvent* event) override;

private:
    using Fields = PageBusiness::Fields;

    template <typename Work>
    bool conduct(const Work& work);
    void hideUnusedControls();
    void refresh(const Business::Turn& turn, Fields fields);
    bool fillSignalCombos(const Business::Turn& turn);
    bool loadFromController(const Business::Turn& turn);
    bool applyAccess(const Business::Turn& turn);
    void lockPage();
    void applySheets();
    void applyCompactLayout();
    void save();
    Fields saveNow(const Business::Turn& turn);
    void cancel();
    void flip(bool isOn, const Business::Turn& turn);
    void switchOff(const Business::Turn& turn);
    std::optional<QJsonObject> switchOn(const Business::Turn& turn);
    void sendValidated(const QJsonObject& settings, const Business::Turn& turn);
    void setMainSwitch(bool isOn);

    std::unique_ptr<Ui::WeldSettingPage> ui;
    FormFields m_fields;
    StyleSteps m_style;
    PageBusiness m_business;
};

#endif
