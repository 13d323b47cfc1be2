#include "tests/fakehost.h"

#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

#include <QBoxLayout>
#include <QEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QGuiApplication>
#include <QScreen>
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
    void stylesPanels();
    void tightensAllSpacers();

private:
    FakeHost m_host;
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

void TestPageStyle::stylesPanels()
{
    const bool dense = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX()) == 192;
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
}

QTEST_MAIN(TestPageStyle)
#include "tst_pagestyle.moc"
