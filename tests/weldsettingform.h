#ifndef TESTS_WELDSETTINGFORM_H
#define TESTS_WELDSETTINGFORM_H

#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"
#include "widgets/enablebutton.h"

#include <QSpinBox>

inline const QString kNode = "weld_setting_config";
inline const QString kSave = "set_weld_setting_config";
inline const QString kEnable = "set_weld_enable";
inline const QString kOn = "set_weld_enable TRUE";
inline const QString kOff = "set_weld_enable FALSE";
inline const QString kSwitch = "pushButton_main_enable";
inline const QString kCheckTimeMessage =
    "2|The detected time of the light output is later than the light output inspection "
    "time; saving failed!";

struct Member {
    const char* key;
    const char* widget;
    QJsonValue stored;     ///< another one in every member, so that a swapped pair shows
    QJsonValue ofFraction; ///< what becomes of the stored number and seven tenths
};

inline const QVector<Member>& members()
{
    static const QVector<Member> all{
        {"laser_main_enable", "pushButton_main_enable", false, false},
        {"laser_comm_type", "comboBox_laser_comm_type", 0, 0},
        {"laser_power", "spinBox_laser_power", 2111, 2111},
        {"feedback_delay", "spinBox_feedback_delay", 1112, 1112},
        {"pre_gas_time", "spinBox_pre_gas_time", 113, 0},
        {"delay_off_time", "spinBox_delay_off_time", 114, 0},
        {"detection_delay", "spinBox_detection_delay", 115, 0},
        {"manual_gas_time", "spinBox_manual_gas_time", 1116, 1000},
        {"retraction_distance", "doubleSpinBox_retraction_distance", 17, 17},
        {"retraction_speed", "doubleSpinBox_retraction_speed", 18, 18},
        {"detection_time", "spinBox_detection_time", 119, 100},
        {"feeder_enable", "pushButton_Feeder", true, false},
        {"wire_feeder_comm_type", "comboBox_wire_feeder_comm_type", 0, 0},
        {"max_feed_speed", "doubleSpinBox_max_feed_speed", 121, 121},
        {"manual_feed_speed", "doubleSpinBox_manual_feed_speed", 122, 122},
        {"manual_retract_speed", "doubleSpinBox_manual_retract_speed", 123, 123},
        {"wire_feedback_detection", "spinBox_wire_feedback_detection", 124, 0},
        {"laser_check_out_time", "spinBox_laser_check_out_time", 125, 0},
    };
    return all;
}

inline QJsonObject storedNode(const QJsonObject& changes = {})
{
    QJsonObject node;
    for (const Member& member : members()) {
        node.insert(member.key, member.stored);
    }
    return changed(node, changes);
}

/// A page on the screen with a host behind it.
struct Shown {
    FakeHost host;
    WeldSettingPage page{nullptr};
    FormDriver form{&page};

    explicit Shown(const QJsonObject& changes = {})
    {
        host.nodes[kNode] = storedNode(changes);
        page.show();
        host.forget();
    }

    bool isOn() const { return form.find<EnableButton>(kSwitch)->getIsEnabled(); }
    bool editable() const
    {
        const QStringList lockable{
            "frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking", "pushButton_cancel", "pushButton_save"};
        const int enabled = std::count_if(lockable.begin(), lockable.end(),
                                          [this](const QString& name) { return form.isEnabled(name); });
        if (enabled != 0 && enabled != lockable.size()) {
            qFatal("partly locked");
        }
        return enabled != 0;
    }
    QJsonValue saved(const char* key) { return page.saveServerConfigToJson().value(kSave).toObject().value(key); }
    int power() const { return form.find<QSpinBox>("spinBox_laser_power")->value(); }
};

#endif
