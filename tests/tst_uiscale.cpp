#include "tests/fakehost.h"

#include "widgets/uiscale.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
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

} // namespace

class TestUiScale : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_host.nodes.clear(); }
    void scalesForTheScreen();
    void takesTheHostsZoom();
    void measuresRowsAndCombos();
    void compactsTheDetailPage();
    void installsEachFixerOnce();
    void cutsPopupToItsRows();

private:
    FakeHost m_host;
};

void TestUiScale::scalesForTheScreen()
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

void TestUiScale::takesTheHostsZoom()
{
    const QPair<QJsonValue, double> zooms[] = {
        {QJsonValue::Null, 1.0}, {1.2, 1.2}, {0.75, 0.75}, {3.0, 3.0}, {0.5, 1.0}, {5, 1.0}, {"1.2", 1.0}};
    const double unzoomed = UiScale::fontFactor(nullptr);
    for (const auto& zoom : zooms) {
        m_host.nodes.insert(QStringLiteral("brisel.fontzoom"), zoom.first);
        m_host.forget();
        QCOMPARE(UiScale::fontFactor(nullptr), unzoomed * zoom.second);
        QCOMPARE(m_host.reads.size(), 1);
    }
    m_host.nodes.insert(QStringLiteral("brisel.fontzoom"), 3.0);
    QCOMPARE(UiScale::pxFont(INT_MAX, nullptr), INT_MAX);
    QCOMPARE(UiScale::pxFont(INT_MIN, nullptr), 1);
    QCOMPARE(UiScale::px(-5, nullptr), 1);
    QCOMPARE(UiScale::adjustedPointSize(0, nullptr), 0);
}

void TestUiScale::measuresRowsAndCombos()
{
    QCOMPARE(UiScale::formRowHeight(nullptr), qMax(contentLineHeight(10) + 8, UiScale::pxFont(28, nullptr)));
    QCOMPARE(UiScale::detailFormRowHeight(nullptr), qBound(20, contentLineHeight(9) + 2, 26));

    QComboBox combo;
    const QString widest = QStringLiteral("Wire Feeding + Direction");
    const QFontMetrics metrics(combo.font());
    QCOMPARE(UiScale::comboMinWidthForItems(nullptr, nullptr), 80);
    combo.setEditable(true);
    combo.setEditText(widest);
    QCOMPARE(UiScale::comboMinWidthForItems(&combo, nullptr), metrics.horizontalAdvance(widest) + 24);
    combo.addItems({QStringLiteral("i"), QStringLiteral("Analogue"), QStringLiteral("Bus")});
    QCOMPARE(UiScale::comboMinWidthForItems(&combo, nullptr), metrics.horizontalAdvance("Analogue") + 24);
}

void TestUiScale::compactsTheDetailPage()
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
    QLabel headerLabel(&header);
    headerLabel.setWordWrap(true);
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
    QVERIFY(headerLabel.wordWrap());
    QCOMPARE(headerGrid->verticalSpacing(), 11);
    QCOMPARE(QSize(grid->horizontalSpacing(), grid->verticalSpacing()), QSize(6, 4));
    QCOMPARE(QSize(edit.minimumWidth(), edit.maximumHeight()), QSize(140, row));
    QCOMPARE(edit.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    UiScale::applyContentFonts(&page, 10);
    QCOMPARE(spin.font().pointSize(), UiScale::adjustedPointSize(10, &page));
    QCOMPARE(spin.font().family(), QStringLiteral("Microsoft YaHei UI"));
}

void TestUiScale::installsEachFixerOnce()
{
    QComboBox combo;
    UiScale::configureComboBoxPopup(&combo, 0);
    QCOMPARE(combo.maxVisibleItems(), 10);
    const auto helpers = [&combo] {
        return combo.view()->findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly).size();
    };
    const int before = helpers();
    UiScale::forceComboBoxPopupBelow(&combo, 5);
    UiScale::forceComboBoxPopupBelow(&combo, 5);
    QCOMPARE(helpers(), before + 1);
    UiScale::limitComboBoxPopupHeight(&combo, 5);
    QCOMPARE(helpers(), before + 2);
}

void TestUiScale::cutsPopupToItsRows()
{
    // At the lower edge of the screen the toolkit itself would open the popup above.
    QWidget window;
    QComboBox combo(&window);
    window.setGeometry(10, QGuiApplication::primaryScreen()->geometry().bottom() - 60, 200, 60);
    combo.setStyleSheet(QStringLiteral("QComboBox{combobox-popup:0;}"));
    UiScale::forceComboBoxPopupBelow(&combo, 5);
    window.show();

    // A popup cut to a short list has to grow again with a longer one.
    for (const int items : {12, 2, 12}) {
        combo.clear();
        for (int i = 0; i < items; ++i) {
            combo.addItem(QString::number(i));
        }
        combo.showPopup();
        const QWidget* popup = combo.view()->window();
        const int height = 2 * combo.view()->frameWidth() + qMin(items, 5) * combo.view()->sizeHintForRow(0);
        QTRY_COMPARE(popup->height(), height);
        QTRY_COMPARE(popup->pos(), combo.mapToGlobal(QPoint(0, combo.height())));
        combo.hidePopup();
    }
    // The two kinds do not undo each other: the lower limit holds.
    UiScale::limitComboBoxPopupHeight(&combo, 3);
    combo.showPopup();
    QTest::qWait(50);
    QCOMPARE(combo.view()->window()->height(), 2 * combo.view()->frameWidth() + 3 * combo.view()->sizeHintForRow(0));
}

QTEST_MAIN(TestUiScale)
#include "tst_uiscale.moc"
