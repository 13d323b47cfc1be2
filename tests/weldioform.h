#ifndef TESTS_WELDIOFORM_H
#define TESTS_WELDIOFORM_H

#include "page/weldiopage.h"
#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"
#include "widgets/enablebutton.h"
#include "widgets/listcombobox.h"

#include <QJsonArray>

inline const QString kNode = "weld_io_config";
inline const QString kSave = "set_weld_io_config";
inline const QString kNotNow = "1|Current status does not allow saving I/O configuration.";

inline QJsonObject registerOf(const char* name, const char* type, const char* access, const QJsonValue& length)
{
    return {{"name", name}, {"type", type}, {"rw", access}, {"len", length}};
}

/// A controller with thirty points of each type and a register or two of each kind.
inline void equip(FakeHost* host)
{
    for (const char* type : {"DO", "DI", "AO", "AI", "GO", "GI"}) {
        for (int i = 30; i > 0; --i) {
            host->io[type].append(type + QString::number(i));
        }
    }
    host->registers = QJsonArray{registerOf("BoolOut", "bool", "rw", 4),      registerOf("BoolOut", "bool", "rw", 9),
                                 registerOf("IntOut", "uint16", "w", 8),      registerOf("FloatOut", "float", "rw", 2),
                                 registerOf("BoolIn", "bit", "ro", "3"),      registerOf("FloatIn", "double", "r", 6),
                                 registerOf("Late", "bool", "rw", 2147483647)};
}

/// A mapping that keeps all rules: every signal that needs a port has one, the others are off.
inline QJsonObject mapping(const QJsonObject& changes = {})
{
    return changed({{"laser_enable_port", "DO1"}, {"gas_protect_port", "DO2"}}, changes);
}

/// A page on the screen with a host behind it.
struct Shown {
    FakeHost host;
    WeldSettingPage setting{nullptr};
    WeldioPage page{&setting, nullptr};
    FormDriver form{&page};

    explicit Shown(const QJsonObject& changes = {})
    {
        equip(&host);
        host.nodes[kNode] = mapping(changes);
        page.show();
        host.forget();
    }

    ListComboBox* combo(const char* key, const char* what) const
    {
        return form.find<ListComboBox>(QStringLiteral("comboBox_%1_%2").arg(key, what));
    }
    /// "type|port|element", the element in brackets while it is hidden.
    QString row(const char* key) const
    {
        const ListComboBox* bias = combo(key, "bias");
        const QString element = bias->isHidden() ? '(' + bias->currentText() + ')' : bias->currentText();
        return QStringList{combo(key, "type")->currentText(), combo(key, "port")->currentText(), element}.join('|');
    }
    EnableButton* button(const char* stem) const
    {
        return form.find<EnableButton>(QStringLiteral("pushButton_%1_enabled").arg(stem));
    }
    QJsonObject saved() { return page.saveWeldIOConfigToJson().value(kSave).toObject(); }
    void load(const QJsonObject& changes) { page.loadWeldIOConfigFromJson(mapping(changes)); }
    void weld(bool on) const { setting.findChild<EnableButton*>("pushButton_main_enable")->setIsEnabled(on, false); }
    void save() const { form.press("pushButton_Save"); }

    /// What the host is asked for while something is done.
    QStringList asked(const std::function<void()>& action)
    {
        QStringList calls;
        host.onCall = [&calls](const QString& call) { calls.append(call); };
        action();
        host.onCall = nullptr;
        return calls;
    }
};

#endif
