#include "checks/fuzz/configpages.h"

#include "checks/fuzz/curvecheck.h"
#include "checks/fuzz/input.h"
#include "checks/fuzz/mappingcheck.h"
#include "checks/fuzz/nodecheck.h"
#include "checks/fuzz/require.h"
#include "page/characteristicscurvepage.h"
#include "page/laserweldpage.h"
#include "page/weldiopage.h"
#include "page/weldsettingpage.h"
#include "simulator/confignodes.h"
#include "tests/fakehost.h"

#include <QApplication>
#include <QJsonArray>
#include <QStackedWidget>

#include <algorithm>

namespace fuzz
{

namespace
{

/// A page that takes its node as a value and saves it with one command.
template <typename Page, void (Page::*Load)(const QJsonValue&), QJsonObject (Page::*Save)()>
ConfigPage row(const char* node)
{
    return {
        Page::staticMetaObject.className(),
        node,
        [](QWidget* page, FakeHost& /*host*/, const QJsonValue& config) { (static_cast<Page*>(page)->*Load)(config); },
        [](QWidget* page) { return (static_cast<Page*>(page)->*Save)(); },
        [node](const FakeHost& /*host*/, const QJsonObject& config, const QJsonObject& written) {
            requireKept(QLatin1String(node), config, written);
        },
        [](const QJsonObject& /*config*/) { return true; }};
}

ConfigPage mappingRow()
{
    ConfigPage page =
        row<WeldioPage, &WeldioPage::loadWeldIOConfigFromJson, &WeldioPage::saveWeldIOConfigToJson>("weld_io_config");
    page.check = [](const FakeHost& host, const QJsonObject& config, const QJsonObject& written) {
        requireKept(QStringLiteral("weld_io_config"), possibleMapping(host, config), written);
        require(possibleMapping(host, written) == written, "what is saved can't be had from this host");
    };
    page.isWhole = isWholeMapping;
    return page;
}

/// One command for each curve.
QJsonObject saveCurves(QWidget* widget)
{
    auto* page = static_cast<CharacteristicsCurvePage*>(widget);
    QJsonObject commands;
    for (const QJsonObject& command :
         {page->saveCurvePowerConfigToJson(), page->saveCurveFeedConfigToJson(), page->saveCurveFrequencyConfigToJson(),
          page->saveCurveDutycycleConfigToJson()}) {
        require(command.size() == 1, "a curve's save is not one command");
        commands.insert(command.constBegin().key(), command.constBegin().value());
    }
    return withEnoughNodes(commands);
}

ConfigPage curvesRow()
{
    using Page = CharacteristicsCurvePage;
    ConfigPage page =
        row<Page, &Page::loadWeldCurveConfigFromJson, &Page::saveCurvePowerConfigToJson>("weld_curve_config");
    page.save = saveCurves;
    page.check = [](const FakeHost& /*host*/, const QJsonObject& config, const QJsonObject& written) {
        requireCurves(config, written);
    };
    page.isWhole = hasAllCurves;
    return page;
}

/// A page with several nodes has several rows.
const QVector<ConfigPage>& rows()
{
    static const QVector<ConfigPage> all = {
        row<WeldSettingPage, &WeldSettingPage::loadServerConfigFromJson, &WeldSettingPage::saveServerConfigToJson>(
            "weld_setting_config"),
        mappingRow(),
        curvesRow(),
    };
    return all;
}

bool isConfigNode(const QString& name)
{
    return sim::nodeNames().contains(name.section(QLatin1Char('.'), 0, 0));
}

void requireRow(const QString& className, const QStringList& reads)
{
    const bool covered = std::any_of(rows().begin(), rows().end(), [&className](const ConfigPage& row) {
        return className == QLatin1String(row.className);
    });
    for (const QString& name : reads) {
        if (!covered && isConfigNode(name)) {
            fail(QStringLiteral("%1 reads %2 and has no row in checks/fuzz/configpages.cpp").arg(className, name));
        }
    }
}

void showEverySubPage(QStackedWidget& stack, FakeHost& host)
{
    // A page that is shown already would not be shown again.
    auto* blank = new QWidget(&stack);
    stack.addWidget(blank);
    for (int i = 0; stack.widget(i) != blank; ++i) {
        stack.setCurrentWidget(blank);
        QApplication::processEvents();
        host.forget();
        stack.setCurrentIndex(i);
        QApplication::processEvents();
        requireRow(QLatin1String(stack.widget(i)->metaObject()->className()), host.reads);
    }
    stack.setCurrentWidget(blank);
}

QWidget* findPage(const QStackedWidget& stack, const char* className)
{
    for (int i = 0; i < stack.count(); ++i) {
        if (qstrcmp(stack.widget(i)->metaObject()->className(), className) == 0) {
            return stack.widget(i);
        }
    }
    fail(QStringLiteral("%1 has a row in checks/fuzz/configpages.cpp and is no page").arg(QLatin1String(className)));
}

/// What the pages may want to read before they read a node.
void publishCell(FakeHost& host)
{
    const QJsonObject nodes = shippedCell().value(QLatin1String("nodes")).toObject();
    for (auto node = nodes.constBegin(); node != nodes.constEnd(); ++node) {
        host.nodes.insert(node.key(), node.value());
    }
    offerPorts(host);
}

/// The names of a series: {"prefix": "DO", "first": 1, "count": 64}.
QStringList namesIn(const QJsonObject& series)
{
    const int first = series.value(QLatin1String("first")).toInt();
    QStringList names;
    for (int i = 0; i < series.value(QLatin1String("count")).toInt(); ++i) {
        names.append(series.value(QLatin1String("prefix")).toString() + QString::number(first + i));
    }
    require(!names.isEmpty(), "the cell's I/O signals are no series");
    return names;
}

/// Few enough that what is done to one of them matters.
QJsonArray namedRegisters()
{
    const QJsonObject mapping = shippedCell().value(QLatin1String("nodes"))[QLatin1String("weld_io_config")].toObject();
    const QVariantList values = mapping.toVariantMap().values();
    QJsonArray named;
    for (const QJsonValue entry : shippedCell().value(QLatin1String("registers")).toArray()) {
        if (values.contains(entry[QLatin1String("name")].toVariant())) {
            named.append(entry);
        }
    }
    return named;
}

} // namespace

void offerPorts(FakeHost& host)
{
    static const QJsonArray registers = namedRegisters();
    static const QMap<QString, QStringList> io = [] {
        QMap<QString, QStringList> points;
        const QJsonObject types = shippedCell().value(QLatin1String("io")).toObject();
        for (auto type = types.constBegin(); type != types.constEnd(); ++type) {
            points.insert(type.key(), namesIn(type.value().toObject()));
        }
        return points;
    }();
    host.registers = registers;
    host.io = io;
}

QVector<OpenPage> openConfigPages(FakeHost& host)
{
    publishCell(host);
    // Kept for the rest of the process, as a pendant keeps it.
    static LaserWeldPage* const main = new LaserWeldPage(nullptr);
    requireRow(QStringLiteral("LaserWeldPage"), host.reads);
    main->show();
    auto* stack = main->findChild<QStackedWidget*>();
    require(stack != nullptr, "the main page has no stack of pages");
    showEverySubPage(*stack, host);
    main->hide();
    QVector<OpenPage> pages;
    for (const ConfigPage& row : rows()) {
        pages.append({&row, findPage(*stack, row.className)});
    }
    return pages;
}

} // namespace fuzz
