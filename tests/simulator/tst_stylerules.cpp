#include "simulator/cellfile.h"
#include "simulator/pendantwindow.h"
#include "simulator/program/programeditor.h"
#include "simulator/stylerules.h"

#include <QLabel>
#include <QtTest>

using namespace sim;

namespace
{

QStringList s_warnings;

void keepWarning(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text)
{
    s_warnings.append(text);
}

/// What Qt has to say about a sheet.
QStringList warningsAbout(const QString& sheet)
{
    s_warnings.clear();
    QWidget widget;
    QLabel label(&widget);
    const QtMessageHandler former = qInstallMessageHandler(keepWarning);
    widget.setStyleSheet(sheet);
    label.ensurePolished();
    qInstallMessageHandler(former);
    return s_warnings;
}

} // namespace

class TestStyleRules : public QObject
{
    Q_OBJECT

private slots:
    void shippedRulesSuitTheTheme();
    void faultsAreNamed_data();
    void faultsAreNamed();
    void fontsFollowTheDensity();
    void pageAndEditorStandInTheSheet();
};

void TestStyleRules::shippedRulesSuitTheTheme()
{
    const StyleRules rules = StyleRules::ofPlugin(QStringLiteral("Corvane"));
    QCOMPARE(rules.faults(), QStringList());
    QCOMPARE(rules.sheet().count(QLatin1Char('{')), 78);
    QCOMPARE(warningsAbout(rules.sheet()), QStringList());
    QVERIFY(!warningsAbout(QStringLiteral("QLabel{color:")).isEmpty());
    QCOMPARE(StyleRules::ofPlugin(QStringLiteral("Nobody")).sheet(), QString());
    QCOMPARE(StyleRules::ofPlugin(QStringLiteral("Nobody")).faults(), QStringList());
}

void TestStyleRules::faultsAreNamed_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QStringList>("faults");
    const auto row = [](const char* title, const char* json, const char* sheet, const QStringList& faults) {
        QTest::newRow(title) << QByteArray(json) << QString::fromLatin1(sheet) << faults;
    };
    row("tokens within text", R"([{"name": "QLabel", "border": "2px solid $color$red", "font": "$font$h2"}])",
        "QLabel{border:2px solid #f00;font:12pt;}\n", {});
    row("unknown tokens",
        R"([{"name": "QLabel", "border": "$border$red $color$", "color": "$color$red"}, {"name": "A", "b": "c$"}])",
        "QLabel{color:#f00;}\nA{}\n",
        {"rule 1, QLabel, border: unknown token $border$red", "rule 1, QLabel, border: unknown token $color$",
         "rule 2, A, b: unknown token $"});
    row("picture that is not there", R"([{"name": "QLabel", "image": "$image$gone"}])", "QLabel{}\n",
        {"rule 1, QLabel, image: unknown token $image$gone"});
    row("no name", R"([{"color": "red"}, 7, {"name": 7}, {"name": "A{"}, {"name": "A", "b": "c"}])", "A{b:c;}\n",
        {"rule 1 has no name that is a selector", "rule 2 has no name that is a selector",
         "rule 3 has no name that is a selector", "rule 4 has no name that is a selector"});
    row("no text", R"([{"name": "A", "b": 7, "c": null, "d": "e", "f": "} B {"}])", "A{d:e;}\n",
        {"rule 1, A, b: not a property's text", "rule 1, A, c: not a property's text",
         "rule 1, A, f: not a property's text"});
    row("no list", R"({"name": "A"})", "", {"the file is no list of rules"});
    row("cut off", "[\n{\"name\": \"A\",\n", "", {"line 3 is no JSON: unterminated object"});
    row("empty", "", "", {"line 1 is no JSON: illegal value"});
}

void TestStyleRules::faultsAreNamed()
{
    const Theme theme(R"({"color": {"red": "#f00"}, "font": {"h2": "12pt"}, "image": {"gone": ":/gone.png"}})", 1.0);
    QFETCH(QByteArray, json);
    const StyleRules rules(json, theme);
    QTEST(rules.sheet(), "sheet");
    QTEST(rules.faults(), "faults");
}

void TestStyleRules::fontsFollowTheDensity()
{
    const Theme theme(R"({"font": {"default": "400 10pt \"A 3pt\"", "h2": "0pt", "h3": "17px"}})", 0.75);
    QCOMPARE(theme.value(QStringLiteral("$font$default")), QStringLiteral("400 8pt \"A 3pt\""));
    QCOMPARE(theme.value(QStringLiteral("$font$h2")), QStringLiteral("1pt"));
    QCOMPARE(theme.value(QStringLiteral("$font$h3")), QStringLiteral("17px"));
}

void TestStyleRules::pageAndEditorStandInTheSheet()
{
    FileFault fault;
    SimulatedController controller(*loadCell(QStringLiteral(SHIPPED_CELL), &fault));
    Journal journal;
    SimHost host(&controller, &journal);
    PendantWindow window(&controller, &journal, &host);
    auto* editor = new pendix::RLContentBase;
    auto* inEditor = new QLabel(editor);
    pendix::RLManager().createInsertWidget(QStringLiteral("Mark"), [editor] { return editor; });
    auto* page = new QLabel(QStringLiteral("page"));
    host.createCenterWidget(QStringLiteral("Faulty"), page);
    window.addPlugin({QStringLiteral("faulty.so"),
                      LoadFault::None,
                      {},
                      {QStringLiteral("Faulty")},
                      {QStringLiteral("Faulty")},
                      {QStringLiteral("Mark")},
                      true});
    QCOMPARE(journal.at(journal.size() - 1).kind, EntryKind::Notice);
    QCOMPARE(journal.at(journal.size() - 1).text,
             QStringLiteral(":/Faulty/render/sub_page.json: rule 1, QLabel, color: unknown token $color$no_such_role"));

    QVERIFY(window.programEditor()->insertPane()->pick(QStringLiteral("Mark")));
    window.show();
    QVERIFY(page->styleSheet().isEmpty());
    const QLabel plain(page->text());
    for (QLabel* label : {page, inEditor}) {
        label->setText(plain.text());
        label->ensurePolished();
        QCOMPARE(label->sizeHint().height(), plain.sizeHint().height() + 2 * 7);
    }
    // Another page in place of this one stands in it as well; what is not the plug-in's does not.
    auto* next = new QLabel(plain.text());
    host.createCenterWidget(QStringLiteral("Faulty"), next);
    next->ensurePolished();
    QCOMPARE(next->sizeHint().height(), plain.sizeHint().height() + 2 * 7);
    pendix::RlRegistry::instance().clear();
}

QTEST_MAIN(TestStyleRules)
#include "tst_stylerules.moc"
