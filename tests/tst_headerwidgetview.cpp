#include "widgets/headerwidgetview.h"

#include <QLabel>
#include <QPointer>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

namespace
{

class CountingHeader : public HeaderWidgetView
{
public:
    using HeaderWidgetView::HeaderWidgetView;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        HeaderWidgetView::paintEvent(event);
    }
};

/// A table of 3 columns and 30 rows with both headers under test.
struct Table {
    QStandardItemModel model{30, 3};
    QTableView view;
    CountingHeader* columns = new CountingHeader(Qt::Horizontal);
    HeaderWidgetView* rows = new HeaderWidgetView(Qt::Vertical);

    Table()
    {
        view.setHorizontalHeader(columns);
        view.setVerticalHeader(rows);
        view.setModel(&model);
        view.resize(400, 200);
        view.show();
        QTest::qWait(0);
    }
};

QWidget* createWidget()
{
    auto* widget = new QWidget;
    widget->setFixedSize(20, 10);
    return widget;
}

} // namespace

class TestHeaderWidgetView : public QObject
{
    Q_OBJECT

private slots:
    void alignsWidgets();
    void replacesAndMoves();
    void handsWidgetsBack();
    void followsItsSections();
    void paintsCaptionsOnce();
};

void TestHeaderWidgetView::alignsWidgets()
{
    const struct {
        bool horizontal;
        Qt::Alignment alignment;
        int share; // of the free room that lies before the widget, in halves
    } cases[] = {{true, Qt::AlignLeft | Qt::AlignRight, 0},
                 {true, Qt::AlignRight, 2},
                 {false, Qt::AlignTop, 0},
                 {false, Qt::AlignBottom, 2},
                 {false, Qt::AlignLeft, 1}};
    for (const auto& expected : cases) {
        Table table;
        HeaderWidgetView* header = expected.horizontal ? table.columns : table.rows;
        QWidget* widget = createWidget();
        header->setSectionWidget(1, widget, expected.alignment);
        header->setSectionWidget(99, widget); // no such section
        QTest::qWait(0);
        const QRect section = header->sectionRect(1);
        const QPoint before = widget->mapTo(header, QPoint()) - section.topLeft();
        const QSize room = section.size() - widget->size();
        QVERIFY(expected.horizontal ? qAbs(before.x() - room.width() * expected.share / 2) <= 1
                                    : qAbs(before.y() - room.height() * expected.share / 2) <= 1);
        QCOMPARE(header->sectionWidget(99), nullptr);
    }
}

void TestHeaderWidgetView::replacesAndMoves()
{
    Table table;
    QPointer<QWidget> first = createWidget();
    QPointer<QWidget> second = createWidget();
    table.columns->setSectionWidget(0, first);
    table.columns->setSectionWidget(0, first); // again
    table.columns->setSectionWidget(1, second);
    QVERIFY(first && second);

    table.columns->setSectionWidget(1, first); // moves and replaces
    QVERIFY(first && !second);
    QCOMPARE(table.columns->sectionWidget(0), nullptr);
    QCOMPARE(table.columns->sectionWidget(1), first.data());

    QPointer<QWidget> inside = new QLabel(first); // part of what it replaces
    table.columns->setSectionWidget(1, inside);
    QVERIFY(inside && !first);

    delete inside; // from outside
    QCOMPARE(table.columns->sectionWidget(1), nullptr);
    table.columns->setSectionWidget(2, createWidget());
    delete table.columns->sectionWidget(2)->parentWidget();
    QCOMPARE(table.columns->sectionWidget(2), nullptr);
    QWidget moved; // put elsewhere, and only then its container is deleted
    table.columns->setSectionWidget(2, &moved);
    QWidget* host = moved.parentWidget();
    moved.setParent(nullptr);
    delete host;
    QCOMPARE(table.columns->sectionWidget(2), nullptr);
    table.columns->layoutWidgets();
}

void TestHeaderWidgetView::handsWidgetsBack()
{
    QWidget kept;
    QPointer<QWidget> lost = createWidget();
    {
        Table table;
        table.columns->setSectionWidget(0, &kept);
        table.columns->removeSectionWidget(0, false);
        QVERIFY(kept.parentWidget() == nullptr && kept.isHidden());
        table.columns->setSectionWidget(2, &kept);
        table.columns->clearSectionWidgets(false);
        QVERIFY(kept.parentWidget() == nullptr && kept.isHidden());
        table.columns->setSectionWidget(1, lost);
    }
    QVERIFY(!lost);
}

void TestHeaderWidgetView::followsItsSections()
{
    Table table;
    QWidget* column = createWidget();
    QWidget* row = createWidget();
    table.columns->setSectionWidget(2, column);
    table.rows->setSectionWidget(0, row);
    table.view.resize(700, 200);
    QTRY_COMPARE(column->parentWidget()->geometry(), table.columns->sectionRect(2));

    table.view.scrollToBottom(); // the only row with a widget leaves the view and isn't painted any more
    QTRY_VERIFY(row->visibleRegion().isEmpty());
    table.columns->hideSection(2);
    QTRY_VERIFY(!column->isVisible());
    table.columns->showSection(2);
    QTRY_VERIFY(column->isVisible());
}

void TestHeaderWidgetView::paintsCaptionsOnce()
{
    Table table;
    const auto picture = [&table] { return table.columns->viewport()->grab().toImage(); };
    table.model.setHorizontalHeaderLabels({QString(), QString(), QString()});
    const QImage blank = picture();
    table.model.setHorizontalHeaderLabels({QStringLiteral("Caption"), QString(), QString()});
    const QImage captioned = picture();
    QVERIFY(blank != captioned);
    table.columns->setSectionWidget(0, createWidget());
    table.columns->setSectionWidget(1, createWidget());
    QCOMPARE(picture(), blank);

    QTest::qWait(50);
    table.columns->paints = 0;
    for (int turn = 0; turn < 200; ++turn) {
        QCoreApplication::processEvents();
    }
    QCOMPARE(table.columns->paints, 0);
    table.columns->removeSectionWidget(0, true);
    QCOMPARE(picture(), captioned);
}

QTEST_MAIN(TestHeaderWidgetView)
#include "tst_headerwidgetview.moc"
