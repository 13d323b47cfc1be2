// What Weld I/O costs: its lists, its selectors and the page itself.

#include "bench/pageshow.h"
#include "common/mjson.h"
#include "common/names.h"
#include "common/naturalorder.h"
#include "page/io/iotable.h"
#include "page/weldiopage.h"
#include "tests/fakehost.h"
#include "ui_weldiopage.h"
#include "widgets/listcombobox.h"

#include <QJsonArray>

#include <memory>
#include <optional>

namespace
{

/// The catalogue's lists of points, by type.
struct PointType {
    const char* name;
    QStringList (*list)();
};

constexpr PointType kPointTypes[] = {{"AO", mJson::GetAO}, {"DO", mJson::GetDO}, {"GO", mJson::GetGO},
                                     {"AI", mJson::GetAI}, {"DI", mJson::GetDI}, {"GI", mJson::GetGI}};

QVector<IoRowTemplate> allSignals()
{
    return outputRowTemplates() + inputRowTemplates();
}

/// Signal i of a list of count names. The lists aren't in natural order.
QString pointName(const QString& type, int i)
{
    return QStringLiteral("Weld_%1%2").arg(type).arg(i);
}

/// A node that assigns every signal a point; those of one type are spread over a list of count names.
QJsonObject assignedNode(int count)
{
    const QVector<IoRowTemplate> rows = allSignals();
    QJsonObject node;
    for (int i = 0; i < rows.size(); ++i) {
        const PortKind& kind = *rows.at(i).portKind;
        const int type = i % kind.registerIndex();
        const QString port = pointName(QLatin1String(kind.ioType(type)->label), (i + 1) * count / rows.size());
        store(rows.at(i), {serverTypeOf(kind, type), port, 1, true}, &node);
    }
    return node;
}

QStringList points(const QString& type, int count)
{
    QStringList names;
    for (int i = count; i > 0; --i) {
        names.append(pointName(type, i));
    }
    return names;
}

/// A controller with as many points of each type, and a node whose ports are among them. It hands its lists in ready:
/// the catalogue has sorted them before, as another page has asked for them, and it gives the same ones each time.
class PointController : public FakeHost
{
public:
    explicit PointController(int pointCount)
    {
        nodes[QLatin1String(names::node::kWeldIo)] = assignedNode(qMax(pointCount, allSignals().size()));
        for (const PointType& type : kPointTypes) {
            const QString name = QLatin1String(type.name);
            io[name] = points(name, pointCount);
            type.list();
        }
    }

    void log(const pendix::LogStatement& /*statement*/) override {}
};

/// A page whose lists hold that many names, and the controller that it asks.
struct Scene {
    explicit Scene(int pointCount) : host(pointCount) { page.resize(kScreen); }

    /// A show that has not found every stored name in its list was too cheap.
    void check(int pointCount)
    {
        const QJsonValue shown = page.saveWeldIOConfigToJson().value(QLatin1String(names::command::kSetWeldIo));
        const bool isFound = shown == host.nodes.value(QLatin1String(names::node::kWeldIo));
        insist(pointCount == 0 || isFound, "Weld I/O shows what is stored");
    }

    PointController host;
    WeldioPage page{nullptr, nullptr};
};

Contestant firstShow(const QString& name, int pointCount)
{
    return {name, [pointCount] {
                Scene scene(pointCount);
                const double ms = cpuMs([&scene] { showNow(scene.page); });
                scene.check(pointCount);
                return ms;
            }};
}

Contestant shownAgain(const QString& name, int pointCount)
{
    return {name, [pointCount] {
                Scene scene(pointCount);
                showNow(scene.page);
                const double ms = shownAgainMs(scene.page);
                scene.check(pointCount);
                return ms;
            }};
}

QJsonArray registers(int count)
{
    const char* types[] = {"bool", "int16", "float"};
    const char* access[] = {"rw", "ro"};
    QJsonArray registers;
    for (int i = count; i > 0; --i) {
        registers.append(QJsonObject{
            {"name", QStringLiteral("Weld_R%1").arg(i)}, {"type", types[i % 3]}, {"rw", access[i % 2]}, {"len", 4}});
    }
    return registers;
}

/// The lists of a show when every row is assigned a register.
QVector<KnownPortLists::List> listsOfOneShow()
{
    PortLists lists(QSharedPointer<KnownPortLists>::create());
    lists.readRegisters();
    QVector<KnownPortLists::List> offered;
    for (const IoRowTemplate& signal : allSignals()) {
        lists.ask(*signal.portKind, signal.portKind->registerIndex());
        offered.append(lists.offered(*signal.portKind, signal.portKind->registerIndex()));
    }
    return offered;
}

/// The least that gives the same five lists: each register is looked at once, each list is sorted once.
QVector<QStringList> fiveLists(const QJsonArray& registers)
{
    QVector<QStringList> lists(5);
    for (const QJsonValue& value : registers) {
        const QJsonObject object = value.toObject();
        const QString type = object.value(QLatin1String("type")).toString();
        const bool isReadable = object.value(QLatin1String("rw")).toString() == QLatin1String("ro");
        const QString name = object.value(QLatin1String("name")).toString();
        if (type == QLatin1String("bool")) {
            lists[isReadable ? 3 : 0].append(name);
            continue;
        }
        lists[isReadable ? 4 : 2].append(name);
        if (type == QLatin1String("int16") && !isReadable) {
            lists[1].append(name);
        }
    }
    for (QStringList& list : lists) {
        list = sortedNaturally(list);
    }
    return lists;
}

Contestant oneShowsLists(const QString& name, const std::function<void()>& work)
{
    return {name, [work] {
                FakeHost host;
                host.registers = registers(3000);
                return repeated({}, work).sample();
            }};
}

QString plainName(const IoRowTemplate& signal)
{
    return QLatin1String(signal.name);
}

/// Weld I/O's widgets as the page builds them: no sheets, no lists.
class PlainPage : public QWidget
{
public:
    PlainPage()
    {
        m_ui.setupUi(this);
        m_outputs.emplace(m_ui.tableWidget_output, outputRowTemplates(), plainName);
        m_inputs.emplace(m_ui.tableWidget_input, inputRowTemplates(), plainName);
    }

    std::vector<WeldIoRow> rows() const
    {
        std::vector<WeldIoRow> rows = m_outputs->rows();
        rows.insert(rows.end(), m_inputs->rows().begin(), m_inputs->rows().end());
        return rows;
    }

private:
    Ui::WeldioPage m_ui;
    std::optional<IoTable> m_outputs;
    std::optional<IoTable> m_inputs;
};

/// Every selector gets a list that it didn't have, with the name that it shows among it.
Contestant refilled(const QString& name)
{
    return {name, [] {
                const PlainPage page;
                const std::vector<WeldIoRow> rows = page.rows();
                const QStringList names = points(QStringLiteral("DO"), 1000);
                const auto refill = [&rows, &names] {
                    const auto ports = QSharedPointer<NameListModel>::create(names);
                    for (const WeldIoRow& row : rows) {
                        row.offerPorts(ports);
                    }
                };
                refill();
                for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
                    rows[i].portCombo->setCurrentIndex(40 * (i + 1));
                }
                return repeated({}, refill).sample();
            }};
}

Contestant refilledPlainly(const QString& name)
{
    return {name, [] {
                QComboBox selectors[24];
                const QStringList names = points(QStringLiteral("DO"), 1000);
                return repeated({},
                                [&selectors, &names] {
                                    for (QComboBox& selector : selectors) {
                                        selector.clear();
                                        selector.addItems(names);
                                    }
                                })
                    .sample();
            }};
}

/// As the main page does it.
std::unique_ptr<QWidget> styledPage()
{
    auto page = std::make_unique<WeldioPage>(nullptr, nullptr);
    page->initStyle();
    return page;
}

Contestant constructedAndShown(const QString& name, std::unique_ptr<QWidget> (*make)())
{
    return {name, [make] {
                const PointController host(0);
                return cpuMs([make] {
                    const std::unique_ptr<QWidget> page = make();
                    page->resize(kScreen);
                    showNow(*page);
                });
            }};
}

Contestant styledFirst(const QString& name)
{
    return {name, [] {
                Scene scene(0);
                return cpuMs([&scene] { scene.page.initStyle(); });
            }};
}

Contestant styledAgain(const QString& name)
{
    return {name, [] {
                Scene scene(0);
                scene.page.initStyle();
                showNow(scene.page);
                return repeated({}, [&scene] { scene.page.initStyle(); }).sample();
            }};
}

} // namespace

std::unique_ptr<QWidget> plainWeldIo()
{
    return std::make_unique<PlainPage>();
}

void addWeldIoRows(BenchTable& table)
{
    const QString none = QStringLiteral("without names");
    for (const int count : {100, 1000, 10000}) {
        const QString names = QStringLiteral(", %L1 names per list").arg(count);
        table.row(firstShow(QStringLiteral("Weld I/O first shown") + names, count), firstShow(none, 0), 1.15);
        table.row(shownAgain(QStringLiteral("Weld I/O shown again") + names, count), shownAgain(none, 0), 1.15);
    }
    const QJsonArray metadata = registers(3000);
    table.row(oneShowsLists(QStringLiteral("Weld I/O's lists of one show, 3,000 registers"), listsOfOneShow),
              oneShowsLists(QStringLiteral("one pass and five sorts"), [metadata] { fiveLists(metadata); }), 3.0);
    table.row(refilled(QStringLiteral("Weld I/O's 24 port selectors refilled, 1,000 names")),
              refilledPlainly(QStringLiteral("QComboBox::addItems")), 0.03);
    table.row(constructedAndShown(QStringLiteral("Weld I/O constructed, styled and shown"), styledPage),
              constructedAndShown(QStringLiteral("its widgets without sheets"), plainWeldIo), 2.5);
    table.row(styledAgain(QStringLiteral("Weld I/O styled again")), styledFirst(QStringLiteral("styled first")), 0.05);
}
