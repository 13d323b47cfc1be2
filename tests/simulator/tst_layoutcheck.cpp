#include "simulator/layoutcheck.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using namespace sim;
using Kind = LayoutFault::Kind;
Q_DECLARE_METATYPE(LayoutFault::Kind)

namespace
{

/// Puts one broken thing on a form that is sound otherwise.
using Build = std::function<void(QWidget* form)>;

template <class Widget>
Build widgetAt(const QRect& place, const std::function<void(Widget*)>& prepare = {})
{
    return [place, prepare](QWidget* form) {
        auto* widget = new Widget(form);
        widget->setObjectName(QStringLiteral("broken"));
        if (prepare) {
            prepare(widget);
        }
        widget->setGeometry(place);
    };
}

/// A widget with a text in the font of this machine, larger than it needs by so many pixels.
template <class Widget>
Build textIn(const char* text, int wider, int higher)
{
    return [=](QWidget* form) {
        auto* widget = new Widget(form);
        widget->setObjectName(QStringLiteral("broken"));
        widget->setText(QString::fromLatin1(text));
        const QSize size = widget->fontMetrics().size(0, widget->text());
        widget->setGeometry(QRect(QPoint(10, 10), size + QSize(wider, higher)));
    };
}

} // namespace

Q_DECLARE_METATYPE(Build)

class TestLayoutCheck : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setStyle(QStringLiteral("Fusion")); }
    void brokenForm_data();
    void brokenForm();
    void soundForm();
    void scrolledPages();
    void theFontIsTheStyleSheets();
};

void TestLayoutCheck::brokenForm_data()
{
    QTest::addColumn<Build>("build");
    QTest::addColumn<Kind>("kind");
    const auto row = [](const char* name, const Build& build, Kind kind) { QTest::newRow(name) << build << kind; };
    const QRect narrow(10, 10, 50, 30);

    row("label too narrow", textIn<QLabel>("Laser power", -1, 0), Kind::CutText);
    row("label too low", textIn<QLabel>("Laser power", 0, -1), Kind::CutText);
    row("wrapped label too low",
        widgetAt<QLabel>(narrow,
                         [](QLabel* label) {
                             label->setWordWrap(true);
                             label->setText(QStringLiteral("three short words"));
                         }),
        Kind::CutText);
    row("picture too large", widgetAt<QLabel>(narrow, [](QLabel* label) { label->setPixmap(QPixmap(51, 20)); }),
        Kind::CutText);
    row("button text", textIn<QPushButton>("Cancel everything", 0, 10), Kind::CutText);
    row("tool button text", textIn<QToolButton>("Cancel everything", 0, 10), Kind::CutText);
    row("check box text", textIn<QCheckBox>("Cancel everything", 0, 10), Kind::CutText);
    row("group title", widgetAt<QGroupBox>(narrow, [](auto* box) { box->setTitle(QStringLiteral("Assist gas")); }),
        Kind::CutText);
    row("value of a line edit",
        widgetAt<QLineEdit>(narrow, [](auto* edit) { edit->setText(QStringLiteral("Steel 2 mm")); }), Kind::CutText);
    row("spin box for its maximum",
        widgetAt<QSpinBox>(QRect(10, 10, 60, 30), [](auto* box) { box->setMaximum(10000000); }), Kind::CutText);
    row("combo box for another entry",
        widgetAt<QComboBox>(narrow,
                            [](auto* box) {
                                box->addItems({QStringLiteral("a"), QStringLiteral("a long entry")});
                            }),
        Kind::CutText);
    row("tab",
        widgetAt<QTabBar>(narrow,
                          [](QTabBar* bar) {
                              bar->setUsesScrollButtons(false);
                              bar->setElideMode(Qt::ElideRight);
                              bar->addTab(QStringLiteral("Characteristic curve"));
                          }),
        Kind::CutText);
    const auto tableOf = [](const char* title, const char* cell) {
        return widgetAt<QTableWidget>(QRect(10, 10, 150, 100), [=](QTableWidget* table) {
            table->setRowCount(1);
            table->setColumnCount(1);
            table->setHorizontalHeaderLabels({QString::fromLatin1(title)});
            table->setItem(0, 0, new QTableWidgetItem(QString::fromLatin1(cell)));
            table->setColumnWidth(0, 40);
        });
    };
    row("column title", tableOf("Command value", "1"), Kind::CutText);
    row("cell", tableOf("1", "1234567890"), Kind::CutText);
    row("column that can't be scrolled to",
        widgetAt<QTableWidget>(QRect(10, 10, 150, 100),
                               [](QTableWidget* table) {
                                   table->setColumnCount(2);
                                   table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
                               }),
        Kind::Outside);
    row(
        "label too faint",
        [](QWidget* form) {
            textIn<QLabel>("Laser power", 0, 0)(form);
            form->findChild<QLabel*>()->setStyleSheet(QStringLiteral("background:#ffffff;color:#808080"));
        },
        Kind::FaintText);
    row("outside its parent", widgetAt<QPushButton>(QRect(380, 10, 40, 30)), Kind::Outside);
    row("small target", widgetAt<QPushButton>(QRect(10, 10, 40, kLeastTarget - 1)), Kind::SmallTarget);
    row(
        "higher than the field below it",
        [](QWidget* form) {
            widgetAt<QComboBox>(QRect(10, 10, 150, 30 + kUnevenness + 1))(form);
            (new QSpinBox(form))->setGeometry(10, 60, 150, 30);
        },
        Kind::Uneven);
    row("combo box for as many letters as it promises",
        widgetAt<QComboBox>(narrow,
                            [](auto* box) {
                                box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
                                box->setMinimumContentsLength(12);
                                box->addItem(QStringLiteral("a long entry"));
                            }),
        Kind::CutText);
    row("overlap", widgetAt<QPushButton>(QRect(100, 225, 40, 40)), Kind::Overlap);
}

void TestLayoutCheck::brokenForm()
{
    QFETCH(Build, build);
    QFETCH(Kind, kind);
    QWidget form;
    form.resize(400, 300);
    auto* sound = new QPushButton(QStringLiteral("Save"), &form);
    sound->setObjectName(QStringLiteral("sound"));
    sound->setGeometry(90, 250, 100, 40);
    build(&form);
    form.show();
    const QVector<LayoutFault> faults = layoutFaults(&form);
    QStringList words;
    for (const LayoutFault& fault : faults) {
        words.append(fault.words);
    }
    QVERIFY2(faults.size() == 1, qPrintable(words.join(QLatin1Char('\n'))));
    QCOMPARE(faults.first().kind, kind);
    QVERIFY2(words.first().contains(QLatin1String("broken")), qPrintable(words.first()));
}

void TestLayoutCheck::soundForm()
{
    QWidget form;
    auto* layout = new QVBoxLayout(&form);
    layout->addWidget(new QLabel(QStringLiteral("Laser power")));
    layout->addWidget(new QLabel(QStringLiteral("<b>rich</b> text")));
    layout->addWidget(new QPushButton(QStringLiteral("Save")));
    auto* check = new QCheckBox(QStringLiteral("Wire"));
    check->setMinimumHeight(kLeastTarget);
    layout->addWidget(check);
    auto* spin = new QSpinBox;
    spin->setRange(-100000, 100000);
    spin->setSuffix(QStringLiteral(" mm/s"));
    layout->addWidget(spin);
    auto* fixed = new QComboBox;
    fixed->addItems({QStringLiteral("a"), QStringLiteral("a long entry")});
    layout->addWidget(fixed);
    // Names that are data, and what an operator types, may be longer than their field.
    auto* names = new QComboBox;
    names->addItems({QStringLiteral("a"), QString(200, QLatin1Char('n'))});
    names->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    layout->addWidget(names);
    auto* typed = new QLineEdit;
    layout->addWidget(typed);
    form.show();
    QTest::keyClicks(typed, QString(200, QLatin1Char('x')));
    const QVector<LayoutFault> faults = layoutFaults(&form);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.value(0).words));
}

void TestLayoutCheck::scrolledPages()
{
    QScrollArea area;
    area.resize(200, 100);
    auto* page = new QWidget;
    auto* button = new QPushButton(QStringLiteral("Save"), page);
    button->setGeometry(10, 400, 100, 40);
    page->resize(150, 500);
    area.setWidget(page);
    area.show();
    QVERIFY(layoutFaults(&area).isEmpty());
    page->resize(500, 500);
    QCOMPARE(layoutFaults(&area).size(), 1);
    QCOMPARE(layoutFaults(&area).first().kind, Kind::SidewaysScroll);
    page->resize(150, 500);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QCOMPARE(layoutFaults(&area).value(0).kind, Kind::Outside);
}

void TestLayoutCheck::theFontIsTheStyleSheets()
{
    QWidget form;
    auto* label = new QLabel(QStringLiteral("Laser power"), &form);
    label->resize(label->fontMetrics().size(0, label->text()));
    form.show();
    QVERIFY(layoutFaults(&form).isEmpty());
    form.setStyleSheet(QStringLiteral("QLabel { padding: 1px; }"));
    QCOMPARE(layoutFaults(&form).size(), 1);
    form.setStyleSheet(QStringLiteral("QLabel { font-size: 40px; }"));
    QCOMPARE(layoutFaults(&form).size(), 1);
}

QTEST_MAIN(TestLayoutCheck)
#include "tst_layoutcheck.moc"
