#ifndef TESTS_CURVEFORM_H
#define TESTS_CURVEFORM_H

#include "page/characteristicscurvepage.h"
#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"
#include "widgets/customchart.h"
#include "widgets/enablebutton.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QShowEvent>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>

inline const QString kNode = "weld_curve_config";
inline const QString kMapping = "weld_io_config";
inline const QString kCompute = "compute_curve_config";

/// A curve as the operator and the controller know it.
struct Curve {
    const char* title;
    const char* stem; ///< of its output in the I/O mapping
    const char* counts;
    const char* table;
    const char* chart;
    const char* compute;
    const char* cancel;
    const char* save;
    const char* countKey;
    const char* nodesKey;
    const char* command;
    const char* header;
    const char* caption;
    int least;
    int greatest;
};

constexpr Curve kCurves[] = {
    {"Laser Power", "power", "comboBox_node", "tableWidget_laserpower", "Chart_laserpower", "pushButton_compute",
     "pushButton_cancel", "pushButton_Save_laserpower", "laser_power_node", "power_nodes_data",
     "set_weld_curve_power_config", "Power(W)", "Power W", 0, 65535},
    {"Feeding Speed", "wire_speed", "comboBox_node_2", "tableWidget_feedspeed", "Chart_feedspeed",
     "pushButton_compute_5", "pushButton_cancel_5", "pushButton_Save_speed", "laser_feed_node", "feed_nodes_data",
     "set_weld_curve_feed_config", " Feed Speed(mm/s)", "Feedspeed mm/s", 0, 65535},
    {"PWM Frequency", "frequency", "comboBox_node_3", "tableWidget_frequency", "Chart_frequency",
     "pushButton_compute_2", "pushButton_cancel_2", "pushButton_Save_frequency", "laser_frequency_node",
     "frequency_nodes_data", "set_weld_curve_frequency_config", "Frequency(Hz)", "Frequency Hz", 0, 65535},
    {"PWM Duty Cycle", "duty_cycle", "comboBox_node_4", "tableWidget_dutycycle", "Chart_dutycycle",
     "pushButton_compute_3", "pushButton_cancel_3", "pushButton_Save_dutycycle", "laser_dutycycle_node",
     "dutycycle_nodes_data", "set_weld_curve_dutycycle_config", "DutyCycle(%)", "Dutycycle %", 1, 100},
};
constexpr const Curve& kPower = kCurves[0];

inline QJsonObject object(const QString& json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

inline QString words(const QJsonValue& value)
{
    return QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact);
}

inline QJsonArray lineAnswer(double slope, double intercept)
{
    const QJsonObject line{{"slope", slope}, {"intercept", intercept}};
    return {QJsonObject{{"Corvane", QJsonObject{{kCompute, line}}}}};
}

/// A mapping in which every curve's output has the port "AO_" and its stem.
inline QJsonObject mapping()
{
    QJsonObject node;
    for (const Curve& curve : kCurves) {
        const QString stem = curve.stem;
        node.insert(stem + "_enabled", true);
        node.insert(stem + "_port", "AO_" + stem);
    }
    return node;
}

/// A node with other values in every curve.
inline QJsonObject storedNode()
{
    return object(R"({"laser_power_node":3,"power_nodes_data":[[0,0],[10.25,1000],[20,3000]],
                      "laser_feed_node":2,"feed_nodes_data":[[1,2],[3,4]],
                      "laser_frequency_node":4,"frequency_nodes_data":[[1,10],[2,20],[3,30],[4,65535]],
                      "laser_dutycycle_node":2,"dutycycle_nodes_data":[[5.5,1],[65535.99,100]]})");
}

/// A page on the screen with a host behind it.
struct Shown {
    FakeHost host;
    WeldSettingPage setting{nullptr};
    CharacteristicsCurvePage page{&setting, nullptr};
    FormDriver form{&page};

    explicit Shown(const QJsonObject& node = storedNode())
    {
        host.nodes[kNode] = node;
        host.nodes[kMapping] = mapping();
        host.answers[kCompute] = lineAnswer(150, -5);
        page.show();
        host.forget();
    }

    QTableWidget* table(const Curve& curve = kPower) const { return form.find<QTableWidget>(curve.table); }
    CustomChart* chart(const Curve& curve = kPower) const { return form.find<CustomChart>(curve.chart); }
    QComboBox* counts(const Curve& curve = kPower) const { return form.find<QComboBox>(curve.counts); }
    QDoubleSpinBox* port(int row) const { return qobject_cast<QDoubleSpinBox*>(table()->cellWidget(row, 1)); }
    QSpinBox* value(int row) const { return qobject_cast<QSpinBox*>(table()->cellWidget(row, 2)); }
    QString header(const Curve& curve = kPower) const { return table(curve)->horizontalHeaderItem(1)->text(); }

    /// "1:0.00/0 2:10.25/1000": number, port value and physical value of each node.
    QString nodes(const Curve& curve = kPower) const
    {
        QStringList rows;
        for (int row = 0; row < table(curve)->rowCount(); ++row) {
            const auto* port = qobject_cast<QDoubleSpinBox*>(table(curve)->cellWidget(row, 1));
            const auto* value = qobject_cast<QSpinBox*>(table(curve)->cellWidget(row, 2));
            rows.append(table(curve)->item(row, 0)->text() + ':' + port->text() + '/' + value->text());
        }
        return rows.join(' ');
    }

    void open(const Curve& curve) const { form.find<QTabWidget>("tabWidget")->setCurrentIndex(&curve - kCurves); }
    void press(const char* button) const { form.press(button); }
    void weld(bool on) const { setting.findChild<EnableButton*>("pushButton_main_enable")->setIsEnabled(on, false); }
    void showAgain()
    {
        page.hide();
        page.show();
    }

    /// What the host is called for while something is done: commands and nodes by name.
    QStringList called(const std::function<void()>& action)
    {
        QStringList calls;
        host.onCall = [this, &calls](const QString& call) {
            calls.append(call == "command" ? host.commands.last().first : call == "read" ? host.reads.last() : call);
        };
        action();
        host.onCall = nullptr;
        calls.removeAll("brisel.fontzoom");
        return calls;
    }
};

#endif
