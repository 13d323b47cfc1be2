#include "tests/fakehost.h"

#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QGroupBox>
#include <QGuiApplication>
#include <QScreen>
#include <QTabWidget>
#include <QTest>

namespace
{

/// Counts how often its sheet takes effect.
class CountingFrame : public QFrame
{
public:
    int styleChanges = 0;

protected:
    void changeEvent(QEvent* event) override { styleChanges += event->type() == QEvent::StyleChange ? 1 : 0; }
};

} // namespace

class TestPageStyle : public QObject
{
    Q_OBJECT

private slots:
    void fillsTheComboBoxSheet();
    void stylesCombosBoxesAndTabs();
    void stylesPanels();
    void tightensAllSpacers();

private:
    FakeHost m_host;
    const bool m_dense = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX()) == 192;
};

void TestPageStyle::fillsTheComboBoxSheet()
{
    const QString sheet = tarvoComboBoxStyleSheet(nullptr, 28, 0, 0, true);
    QVERIFY(
        sheet.contains(QLatin1String("border-radius:10px;padding:0px 32px 0px 6px;combobox-popup:0;font:400 9pt ")));
    QVERIFY(sheet.contains(QLatin1String("\"Microsoft YaHei UI\";min-height:28px;max-height:28px;}")));
    QVERIFY(sheet.contains(QLatin1String("width:30px;border:none;}")));
    QVERIFY(sheet.contains(QLatin1String("::item{min-height:28px;padding:2px 8px;}")));
}

void TestPageStyle::stylesCombosBoxesAndTabs()
{
    QComboBox combo;
    const auto has = [](const QWidget& widget, const char* text) {
        return widget.styleSheet().contains(QLatin1String(text));
    };
    applyIoPageComboBoxStyle(&combo, 8, 40);
    QVERIFY(has(combo, "border-radius:10px;padding:0px 32px") && has(combo, "min-height:40px;max-height:40px;"));
    QCOMPARE(combo.maxVisibleItems(), 8);
    applyIoPageComboBoxStyle(&combo, 8, 31);
    QVERIFY(has(combo, "border-radius:6px;padding:0px 24px"));
    applyIoPageComboBoxStyle(&combo, 8, 0);
    const int line = QFontMetrics(UiScale::contentFont(&combo, 10)).height();
    QVERIFY(has(combo, qPrintable(QStringLiteral("max-height:%1px").arg(qMax(line + 2, 20)))));
    // Each sheet is damped once.
    QVERIFY(has(combo, m_dense ? "400 7pt" : "400 9pt"));

    QGroupBox box;
    setGroupBoxDetailCompactStyle(&box);
    QFont title("Segoe UI", UiScale::adjustedPointSize(10, &box), QFont::DemiBold);
    const int height = QFontMetrics(title).height();
    QVERIFY(has(box, qPrintable(QStringLiteral("margin-top:%1px;margin-bottom:4px;padding-top:%2px;font:600 %3pt")
                                    .arg(qMax(height / 2 + 2, 8))
                                    .arg(height + 10)
                                    .arg(m_dense ? 8 : 10))));
    QTabWidget tabs;
    setDetailTabStyle(&tabs);
    QVERIFY(has(tabs, m_dense ? "font:400 8pt" : "font:400 10pt") && has(tabs, "min-width:120px;min-height:32px"));

    applyIoPageComboBoxStyle(nullptr, 8, 40);
    setGroupBoxDetailCompactStyle(nullptr);
    setDetailTabStyle(nullptr);
}

void TestPageStyle::stylesPanels()
{
    const bool dense = m_dense;
    CountingFrame panel;
    setPanelFrameStyle(&panel);
    panel.ensurePolished();
    const int changes = panel.styleChanges;
    setPanelFrameStyle(&panel);
    QCOMPARE(panel.styleChanges, changes);

    const QString sheet = panel.styleSheet();
    const int row = qMax(QFontMetrics(UiScale::contentFont(&panel, 10)).height() + 4, 22);
    QCOMPARE(sheet.count(dense ? "400 7pt" : "400 9pt"), 1);  // the combo boxes
    QCOMPARE(sheet.count(dense ? "400 8pt" : "400 10pt"), 2); // labels and spin boxes
    QCOMPARE(sheet.count(dense ? "600 8pt" : "600 10pt"), 1); // titles
    QCOMPARE(sheet.count(QStringLiteral("min-height:%1px").arg(row)), 3);
    QVERIFY(!sheet.contains(QLatin1Char('%')));
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
