// Configuration nodes as a controller may publish them, into every page that edits one and out again. An input is a
// node as JSON text, which may hold the controller's "registers" too, or decisions that take the node and the registers
// of the simulator's cell apart.
#include "checks/fuzz/application.h"
#include "checks/fuzz/configpages.h"
#include "checks/fuzz/damage.h"
#include "checks/fuzz/input.h"
#include "checks/fuzz/nodecheck.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "tests/fakehost.h"

#include <QApplication>

using namespace fuzz;

namespace
{

FakeHost& host()
{
    static FakeHost theHost;
    return theHost;
}

const QVector<OpenPage>& pages()
{
    static const QVector<OpenPage> all = openConfigPages(host());
    return all;
}

/// What a page saves, as its node would look: its commands bring the members of the node, all of them together.
QJsonObject save(const OpenPage& page)
{
    const QJsonObject commands = page.row->save(page.widget);
    requireInRange(commands);
    QJsonObject node;
    for (const QJsonValue argument : commands) {
        const QJsonObject members = argument.toObject();
        for (auto member = members.constBegin(); member != members.constEnd(); ++member) {
            node.insert(member.key(), member.value());
        }
    }
    return node;
}

QJsonObject loadAndSave(const OpenPage& page, const QJsonValue& config)
{
    page.row->load(page.widget, host(), config);
    return save(page);
}

void checkPage(const OpenPage& page, const QJsonValue& config)
{
    const QJsonObject before = save(page);
    const QJsonObject written = loadAndSave(page, config);
    if (!config.isObject()) {
        require(written == before, "a value that is no object changes the page");
        return;
    }
    page.row->check(host(), config.toObject(), written);
    require(loadAndSave(page, written) == written, "what was saved changes when it is loaded and saved again");
    if (!page.row->isWhole(config.toObject())) {
        return;
    }
    for (const QJsonObject& other : {QJsonObject(), highestNode(QLatin1String(page.row->node))}) {
        loadAndSave(page, other);
        require(loadAndSave(page, config) == written, "what is saved depends on what was loaded before");
    }
}

/// What the controller offers is another one's by now, or the line is down.
void changeOffer(Dice& dice)
{
    for (int left = dice.below(4); left > 0; --left) {
        host().registers = dice.oneIn(8) ? anyValue(dice) : damaged(host().registers, dice);
    }
    if (dice.oneIn(16)) {
        host().io.clear();
        host().registers = QJsonValue(QJsonValue::Undefined);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    startApplication();
    for (const OpenPage& page : pages()) {
        require(!save(page).isEmpty(), "a save brings nothing");
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Input input(data, size);
    ByteDice dice = input.dice();
    const QJsonValue nodes = shippedCell().value(QLatin1String("nodes"));
    host().forget();
    offerPorts(host());
    const QJsonValue json = input.json();
    if (input.holdsDecisions()) {
        changeOffer(dice);
    } else if (json.toObject().contains(QLatin1String("registers"))) {
        host().registers = json[QLatin1String("registers")];
    }
    for (const OpenPage& page : pages()) {
        checkPage(page, input.holdsDecisions() ? scrambled(nodes[QLatin1String(page.row->node)], dice) : json);
    }
    require(host().commands.isEmpty(), "loading a node sends a command");
    require(host().messages.isEmpty(), "loading a node tells the operator something");
    QApplication::sendPostedEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the cells of rows that are gone
    return 0;
}
