#include "tests/fakehost.h"

#include "widgets/pagestyle.h"
#include "widgets/stylekey.h"
#include "widgets/uiscale.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QComboBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

namespace
{

/// What a screen density must lead to at font zoom 1.0.
struct Expected {
    int dpi;
    double ratio;
    double fontFactor;
    int px35;
    int points10;
    const char* sheet;
};

constexpr char kSheet[] = "font: 400 10pt;font-size:1px;FONT-SIZE : 20px;border:2px;x:9ptfont:12pt;y:99999999999pt";
constexpr Expected kExpected[] = {
    {48, 1.0, 0.75, 26, 10, kSheet},
    {96, 1.0, 1.0, 35, 10, kSheet},
    {144, 1.25 / 1.5, 1.25, 44, 8,
     "font: 400 8pt;font-size:1px;FONT-SIZE : 17px;border:2px;x:8ptfont:10pt;y:2147483647pt"},
    {192, 0.75, 1.5, 53, 8, "font: 400 8pt;font-size:1px;FONT-SIZE : 15px;border:2px;x:7ptfont:9pt;y:2147483647pt"},
    {288, 2.0 / 3.0, 2.0, 70, 7,
     "font: 400 7pt;font-size:1px;FONT-SIZE : 13px;border:2px;x:6ptfont:8pt;y:2147483647pt"},
};

int contentLineHeight(int points)
{
    return QFontMetrics(UiScale::contentFont(nullptr, points)).height();
}

/// Whether a widget's sheet has a text, in which @9 stands for 9 points damped for the screen.
bool has(const QWidget& widget, QString text)
{
    for (const int points : {9, 10}) {
        text.replace(QStringLiteral("@%1").arg(points),
                     QStringLiteral("%1pt").arg(UiScale::adjustedPointSize(points, &widget)));
    }
    return widget.styleSheet().contains(text);
}

} // namespace

class TestPageStyle : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_host.nodes.clear(); }
    void scalesForTheScreen();
    void takesTheHostsZoom();
    void measuresRowsAndCombos();
    void compactsTheDetailPage();
    void cutsPopupToItsRows();
    void buildsSheets();
    void stylesWhatChanged();
    void tightensAllSpacers();

private:
    FakeHost m_host;
};

void TestPageStyle::scalesForTheScreen()
{
    const int dpi = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    const auto* expected =
        std::find_if(std::begin(kExpected), std::end(kExpected), [dpi](const Expected& row) { return row.dpi == dpi; });
    QVERIFY2(expected != std::end(kExpected), "no expectation for this density");
    QWidget shown;
    shown.show();
    for (const QWidget* w : {static_cast<const QWidget*>(nullptr), static_cast<const QWidget*>(&shown)}) {
        QCOMPARE(UiScale::contentScaleRatio(w), expected->ratio);
        QCOMPARE(UiScale::fontFactor(w), expected->fontFactor);
        QCOMPARE(UiScale::tableRowHeight(w), expected->px35);
        QCOMPARE(UiScale::contentFont(w, 10).pointSize(), expected->points10);
        QCOMPARE(UiScale::scaleStylesheet(QString::fromLatin1(kSheet), w), QString::fromLatin1(expected->sheet));
    }
}

void TestPageStyle::takesTheHostsZoom()
{
    const QPair<QJsonValue, double> zooms[] = {
        {QJsonValue::Null, 1.0}, {0.75, 0.75}, {0.5, 1.0}, {5, 1.0}, {"1.2", 1.0}, {3.0, 3.0}};
    const double unzoomed = UiScale::fontFactor(nullptr);
    for (const auto& zoom : zooms) {
        m_host.nodes.insert(QStringLiteral("brisel.fontzoom"), zoom.first);
        QCOMPARE(UiScale::fontFactor(nullptr), unzoomed * zoom.second);
    }
    QCOMPARE(UiScale::pxFont(INT_MAX, nullptr), INT_MAX);
    QCOMPARE(UiScale::pxFont(INT_MIN, nullptr), 1);
    QCOMPARE(UiScale::px(-5, nullptr), 1);
    QCOMPARE(UiScale::adjustedPointSize(0, nullptr), 0);
}

void TestPageStyle::measuresRowsAndCombos()
{
    QCOMPARE(UiScale::formRowHeight(nullptr), qMax(contentLineHeight(10) + 8, UiScale::pxFont(28, nullptr)));
    QCOMPARE(UiScale::detailFormRowHeight(nullptr), qBound(20, contentLineHeight(9) + 2, 26));

    QComboBox combo;
    const QFontMetrics metrics(combo.font());
    QCOMPARE(UiScale::comboMinWidthForItems(nullptr, nullptr), 80);
    combo.setEditable(true);
    combo.setEditText(QStringLiteral("Wire Feeding"));
    QCOMPARE(UiScale::comboMinWidthForItems(&combo, nullptr), metrics.horizontalAdvance("Wire Feeding") + 24);
    combo.addItems({QStringLiteral("i"), QStringLiteral("Analogue"), QStringLiteral("Bus")});
    QCOMPARE(UiScale::comboMinWidthForItems(&combo, nullptr), metrics.horizontalAdvance("Analogue") + 24);
}

void TestPageStyle::compactsTheDetailPage()
{
    QWidget page;
    QLabel label(&page);
    QLabel unit(&page);
    unit.setProperty("type", "unit");
    label.setFixedWidth(50);
    unit.setFixedWidth(50);
    QSpinBox spin(&page);
    QFrame wide(&page);
    QFrame narrow(&page);
    QFrame header(&page);
    wide.setObjectName(QStringLiteral("frame_16"));
    header.setObjectName(QStringLiteral("frame_config_header"));
    wide.setMaximumHeight(399);
    narrow.setMaximumHeight(400);
    auto* headerGrid = new QGridLayout(&header);
    headerGrid->setSpacing(11);
    auto* grid = new QGridLayout(&wide);
    QLineEdit edit(&page);

    UiScale::applyWeldParamDetailPage(&page, nullptr);
    const int row = UiScale::detailFormRowHeight(nullptr);
    QCOMPARE(label.maximumSize(), QSize(QWIDGETSIZE_MAX, row));
    QCOMPARE(label.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred); // a label is no panel
    QCOMPARE(unit.maximumSize(), QSize(50, row));
    QCOMPARE(spin.maximumHeight(), row);
    QCOMPARE(spin.findChild<QLineEdit*>()->minimumWidth(), 0); // the spin box's own editor
    QCOMPARE(wide.maximumHeight(), QWIDGETSIZE_MAX);
    QCOMPARE(wide.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(narrow.maximumHeight(), 400);
    QCOMPARE(narrow.sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(headerGrid->verticalSpacing(), 11);
    QCOMPARE(QSize(grid->horizontalSpacing(), grid->verticalSpacing()), QSize(6, 4));
    QCOMPARE(QSize(edit.minimumWidth(), edit.maximumHeight()), QSize(140, row));
    UiScale::applyContentFonts(&page, 10);
    QCOMPARE(spin.font().pointSize(), UiScale::adjustedPointSize(10, &page));
    QCOMPARE(spin.font().family(), QStringLiteral("Microsoft YaHei UI"));
}

void TestPageStyle::cutsPopupToItsRows()
{
    // At the lower edge of the screen the toolkit itself would open the popup above.
    QWidget window;
    QComboBox combo(&window);
    window.setGeometry(10, QGuiApplication::primaryScreen()->geometry().bottom() - 60, 200, 60);
    combo.setStyleSheet(QStringLiteral("QComboBox{combobox-popup:0;}"));
    UiScale::configureComboBoxPopup(&combo, 0);
    QCOMPARE(combo.maxVisibleItems(), 10);
    const auto helpers = [&combo] {
        return combo.view()->findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly).size();
    };
    const int before = helpers();
    UiScale::forceComboBoxPopupBelow(&combo, 5);
    UiScale::forceComboBoxPopupBelow(&combo, 5);
    QCOMPARE(helpers(), before + 1);
    window.show();

    const auto heightOf = [&combo](int rows) {
        return 2 * combo.view()->frameWidth() + rows * combo.view()->sizeHintForRow(0);
    };
    // A popup cut to a short list has to grow again with a longer one.
    for (const int items : {12, 2, 12}) {
        combo.clear();
        for (int i = 0; i < items; ++i) {
            combo.addItem(QString::number(i));
        }
        combo.showPopup();
        QTRY_COMPARE(combo.view()->window()->height(), heightOf(qMin(items, 5)));
        QTRY_COMPARE(combo.view()->window()->pos(), combo.mapToGlobal(QPoint(0, combo.height())));
        combo.hidePopup();
    }
    // The two kinds do not undo each other: the lower limit holds.
    UiScale::limitComboBoxPopupHeight(&combo, 3);
    combo.showPopup();
    QTest::qWait(50);
    QCOMPARE(combo.view()->window()->height(), heightOf(3));
}

void TestPageStyle::buildsSheets()
{
    QComboBox combo;
    combo.setStyleSheet(tarvoComboBoxStyleSheet(nullptr, 28, 0, 0, true));
    QVERIFY(has(combo, "border-radius:10px;padding:0px 32px 0px 6px;combobox-popup:0;font:400 9pt "));
    QVERIFY(has(combo, "\"Microsoft YaHei UI\";min-height:28px;max-height:28px;}"));
    QVERIFY(has(combo, "width:30px;border:none;}") && has(combo, "::item{min-height:28px;padding:2px 8px;}"));
    applyIoPageComboBoxStyle(&combo, 8, 40);
    QVERIFY(has(combo, "border-radius:10px;padding:0px 32px") && has(combo, "min-height:40px;max-height:40px;"));
    QCOMPARE(combo.maxVisibleItems(), 8);
    applyIoPageComboBoxStyle(&combo, 8, 31);
    QVERIFY(has(combo, "border-radius:6px;padding:0px 24px"));
    applyIoPageComboBoxStyle(&combo, 8, 0);
    QVERIFY(has(combo, QStringLiteral("max-height:%1px").arg(qMax(contentLineHeight(10) + 2, 20))));
    QVERIFY(has(combo, "400 @9")); // each sheet is damped once

    QGroupBox box;
    setGroupBoxDetailCompactStyle(&box);
    const int height = QFontMetrics(QFont("Segoe UI", UiScale::adjustedPointSize(10, &box), QFont::DemiBold)).height();
    QVERIFY(has(box, QStringLiteral("margin-top:%1px;margin-bottom:4px;padding-top:%2px;font:600 @10")
                         .arg(qMax(height / 2 + 2, 8))
                         .arg(height + 10)));
    QTabWidget tabs;
    setDetailTabStyle(&tabs);
    QVERIFY(has(tabs, "font:400 @10") && has(tabs, "min-width:120px;min-height:32px"));
    QFrame panel;
    setPanelFrameStyle(&panel);
    QVERIFY(has(panel, "400 @9") && has(panel, "border:none;font:400 @10") && has(panel, "font:600 @10"));
    QCOMPARE(panel.styleSheet().count(QStringLiteral("min-height:%1px").arg(qMax(contentLineHeight(10) + 4, 22))), 3);
    QVERIFY(!has(panel, "%"));

    applyIoPageComboBoxStyle(nullptr, 8, 40);
    setGroupBoxDetailCompactStyle(nullptr);
    setDetailTabStyle(nullptr);
}

void TestPageStyle::stylesWhatChanged()
{
    struct : QFrame {
        int styleChanges = 0;
        void changeEvent(QEvent* event) override { styleChanges += event->type() == QEvent::StyleChange ? 1 : 0; }
    } page;
    struct Field : QSpinBox {
        using QSpinBox::QSpinBox;
        int fontChanges = 0;
        void changeEvent(QEvent* event) override { fontChanges += event->type() == QEvent::FontChange ? 1 : 0; }
    } field(&page);
    const auto style = [&] {
        setPanelFrameStyle(&page);
        page.ensurePolished();
        UiScale::applyContentFonts(&page, 10);
        return QPair<int, int>(page.styleChanges, field.fontChanges);
    };
    const auto changes = style();
    QCOMPARE(style(), changes);

    StyleSteps steps;
    QVERIFY(steps.sheetsAreDue(&page) && !steps.sheetsAreDue(&page));
    QVERIFY(!steps.sizesAreDue(&page)); // nothing is measured before it is shown
    page.show();
    QVERIFY(steps.sizesAreDue(&page) && !steps.sizesAreDue(&page));
    m_host.nodes.insert(QStringLiteral("brisel.fontzoom"), 1.5);
    QVERIFY(steps.sheetsAreDue(&page) && steps.sizesAreDue(&page));
    page.setLocale(QLocale(QLocale::Chinese));
    QVERIFY(steps.sheetsAreDue(&page) && steps.sizesAreDue(&page) && !steps.sheetsAreDue(&page));
}

void TestPageStyle::tightensAllSpacers()
{
    QWidget page;
    auto* panel = new QWidget;
    (new QVBoxLayout(&page))->addWidget(panel);
    auto* row = new QHBoxLayout;
    (new QVBoxLayout(panel))->addLayout(row);
    row->addSpacerItem(new QSpacerItem(60, 30));
    page.show();
    QVERIFY(page.sizeHint().width() >= 60);

    tightenPageHorizontalSpacers(&page);
    QCOMPARE(row->itemAt(0)->sizeHint(), QSize(0, 30));
    QCOMPARE(row->itemAt(0)->expandingDirections(), Qt::Orientations(Qt::Horizontal));
    QTRY_VERIFY(page.sizeHint().width() < 60); // the layouts know of it

    auto* nested = new QVBoxLayout;
    nested->addSpacerItem(new QSpacerItem(5, 40, QSizePolicy::Minimum, QSizePolicy::Expanding));
    nested->addSpacerItem(new QSpacerItem(5, 9, QSizePolicy::Expanding, QSizePolicy::Fixed));
    row->addLayout(nested);
    collapseVerticalSpacers(panel->layout());
    QCOMPARE(nested->itemAt(0)->sizeHint(), QSize(0, 0));
    QCOMPARE(nested->itemAt(0)->expandingDirections(), Qt::Orientations());
    QCOMPARE(nested->itemAt(1)->sizeHint(), QSize(5, 9));
    tightenPageHorizontalSpacers(nullptr);
    collapseVerticalSpacers(nullptr);
}

QTEST_MAIN(TestPageStyle)
#include "tst_pagestyle.moc"
