// interface_documents CELL FILE: lets the real pages and the plug-in object send all their commands to a host that
// keeps them, and writes to FILE what was sent, what the simulated controller answers to it, and the nodes of CELL:
// [{"schema", "about", "value"}, ...].

#include "common/names.h"
#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "page/weldsettingpage.h"
#include "plugin/corvane.h"
#include "simulator/simulatedcontroller.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSpinBox>

#include <algorithm>

namespace
{

void require(bool condition, const QString& otherwise)
{
    if (!condition) {
        qFatal("%s", qPrintable(otherwise));
    }
}

class Documents
{
public:
    explicit Documents(const sim::Cell& cell) : m_controller(cell) {}

    void add(const QString& schema, const QString& about, const QJsonValue& value)
    {
        m_list.append(QJsonObject{{"schema", schema}, {"about", about}, {"value", value}});
    }

    /// Takes what the host got since the last time, while its senders still live.
    void takeCommands(FakeHost& host, const QString& about)
    {
        for (int i = 0; i < host.commands.size(); ++i) {
            const QString name = host.commands.at(i).first;
            const QJsonValue argument = host.commands.at(i).second;
            requireKnown(name, host.senders.at(i));
            add(name, about, argument);
            add("result", name + ", " + about, m_controller.execute(names::kPlugin, {{name, argument}}).answer);
        }
        host.forget();
    }

    const QJsonArray& list() const { return m_list; }

private:
    static void requireKnown(const QString& name, const QObject* sender)
    {
        const auto* known = std::find_if(std::begin(names::command::kAll), std::end(names::command::kAll),
                                         [&name](const auto* command) { return name == command->name; });
        require(known != std::end(names::command::kAll), name + " is not listed in common/names.h");
        require(qstrcmp(sender->metaObject()->className(), (*known)->sender) == 0,
                QStringLiteral("%1 is sent by %2, not by %3")
                    .arg(name, sender->metaObject()->className(), (*known)->sender));
    }

    sim::SimulatedController m_controller;
    QJsonArray m_list;
};

void addNodes(Documents& documents, const sim::Cell& cell)
{
    for (const auto* node : names::node::kAll) {
        if (node->content != names::node::Content::Stream) {
            const QJsonObject& published = node->content == names::node::Content::Object ? cell.nodes : cell.values;
            documents.add(node->name, "in the simulated cell", published.value(node->name));
        }
    }
}

void saveSettings(Documents& documents, const sim::Cell& cell)
{
    FakeHost host;
    host.nodes.insert(names::node::kWeldSetting.name, cell.nodes.value(names::node::kWeldSetting.name));
    WeldSettingPage page(nullptr);
    page.show();
    const FormDriver form(&page);
    const auto save = [&](const QString& about) {
        form.press("pushButton_save");
        documents.takeCommands(host, about);
    };
    save("as loaded");
    const QList<QSpinBox*> numbers = page.findChildren<QSpinBox*>();
    for (QSpinBox* number : numbers) {
        number->setValue(number->minimum());
    }
    form.press("pushButton_Feeder");
    save("lowest");
    for (QSpinBox* number : numbers) {
        number->setValue(number->maximum());
    }
    save("highest");
    form.press("pushButton_main_enable");
    documents.takeCommands(host, "welding switched on");
    form.press("pushButton_main_enable");
    documents.takeCommands(host, "welding switched off");
}

void pressPendantButtons(Documents& documents)
{
    for (const bool status : {false, true}) {
        FakeHost host;
        host.nodes.insert(names::node::kVirtualWelding.name, status);
        host.nodes.insert(names::node::kRedLightStatus.name, status);
        pendix::Corvane plugin(nullptr);
        plugin.init();
        const QList<pendix::PhysicalButton> buttons = host.firstButtons + host.secondButtons;
        for (const pendix::PhysicalButton& button : buttons) {
            for (const bool pressed : {true, false}) {
                button.handler(pressed);
                documents.takeCommands(host, button.text + (pressed ? " pressed" : " released"));
            }
        }
    }
}

void closeMonitor(Documents& documents)
{
    FakeHost host;
    ButtonMonitorPage monitor(nullptr);
    monitor.show();
    monitor.close();
    documents.takeCommands(host, "monitor closed");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    require(arguments.size() == 3, "interface_documents CELL FILE");
    sim::FileFault fault;
    const std::optional<sim::Cell> cell = sim::loadCell(arguments.at(1), &fault);
    require(cell.has_value(), fault.message());
    Documents documents(*cell);
    addNodes(documents, *cell);
    saveSettings(documents, *cell);
    pressPendantButtons(documents);
    closeMonitor(documents);
    const QByteArray text = QJsonDocument(documents.list()).toJson();
    QFile file(arguments.at(2));
    require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush(), file.errorString());
    return 0;
}
