#include "widgets/stackedwidgetfit.h"

#include <QEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

namespace
{

/// A page whose layout needs the given height at any width, and as much as its words.
QWidget* createPage(QSizePolicy::Policy policy, int height, int words = 0)
{
    auto* page = new QWidget;
    page->setSizePolicy(QSizePolicy::Preferred, policy);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* content = new QLabel(QStringLiteral("word ").repeated(words));
    content->setWordWrap(words > 0);
    content->setMinimumHeight(height);
    layout->addWidget(content);
    return page;
}

/// A compact page that holds a stack with a compact page of its own.
QWidget* createNest(int height, int innerHeight, StackedWidgetFit** inner = nullptr)
{
    QWidget* page = createPage(QSizePolicy::Minimum, height);
    auto* stack = new StackedWidgetFit;
    stack->addWidget(createPage(QSizePolicy::Minimum, innerHeight));
    page->layout()->addWidget(stack);
    if (inner != nullptr) {
        *inner = stack;
    }
    return page;
}

/// Counts what happens to a widget that should be at rest, over many turns of the event loop.
int unrestOf(QWidget* widget)
{
    struct Counter : QObject {
        int events = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            events += event->type() == QEvent::LayoutRequest || event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    QTest::qWait(50);
    widget->installEventFilter(&counter);
    for (int turn = 0; turn < 200; ++turn) {
        QCoreApplication::processEvents();
    }
    return counter.events;
}

/// A stack between margins of 0 in a resizable scroll area, as on the main page.
struct ScrolledStack {
    QScrollArea area;
    StackedWidgetFit* stack = new StackedWidgetFit;

    ScrolledStack()
    {
        auto* content = new QWidget;
        auto* layout = new QVBoxLayout(content);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(stack);
        area.setFrameShape(QFrame::NoFrame);
        area.setWidgetResizable(true);
        area.setWidget(content);
        area.resize(400, 300);
    }

    int range() const { return area.verticalScrollBar()->maximum(); }
};

} // namespace

class TestStackedWidgetFit : public QObject
{
    Q_OBJECT

private slots:
    void fitsByPolicy();
    void measuresFramesAndText();
    void scrollsTallPages();
    void comesToRest();
};

void TestStackedWidgetFit::fitsByPolicy()
{
    const struct {
        QSizePolicy::Policy policy;
        int height, pageHeight, minimum;
    } cases[] = {{QSizePolicy::Fixed, 600, 350, 0},
                 {QSizePolicy::Minimum, 200, 200, 350},
                 {QSizePolicy::Preferred, 200, 200, 0},
                 {QSizePolicy::MinimumExpanding, 600, 600, 0}};
    for (const auto& expected : cases) {
        StackedWidgetFit stack;
        QWidget* page = createPage(expected.policy, 350);
        stack.addWidget(page);
        stack.resize(800, expected.height);
        stack.show();
        QTest::qWait(0);
        QCOMPARE(stack.size(), QSize(800, expected.height));
        QCOMPARE(page->geometry(), QRect(0, 0, 800, expected.pageHeight));
        QCOMPARE(stack.minimumSizeHint(), QSize(0, expected.minimum));
        QCOMPARE(stack.sizeHint(), QSize(0, 0));
    }
}

void TestStackedWidgetFit::measuresFramesAndText()
{
    // The margins that a frame adds must not pass for its content.
    StackedWidgetFit stack;
    auto* frame = new QFrame;
    frame->setFrameShape(QFrame::Box);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    (new QVBoxLayout(frame))->addWidget(createPage(QSizePolicy::Minimum, 100));
    stack.addWidget(frame);
    stack.resize(300, 400);
    stack.fitCurrentCompactPage();
    QVERIFY(frame->height() > 100);
    QVERIFY(frame->height() < 200);

    // Wrapped text gets higher as the scroll bar takes width away.
    ScrolledStack scrolled;
    QWidget* text = createPage(QSizePolicy::Minimum, 10, 2000);
    scrolled.stack->addWidget(text);
    scrolled.area.show();
    QTRY_VERIFY(scrolled.range() > 0);
    for (const int width : {400, 800, 300}) {
        scrolled.area.resize(width, 300);
        QTRY_COMPARE(text->height(), text->heightForWidth(scrolled.area.viewport()->width()));
        QTRY_COMPARE(scrolled.range(), text->height() - 300);
    }
}

void TestStackedWidgetFit::scrollsTallPages()
{
    ScrolledStack scrolled;
    QWidget* page = createPage(QSizePolicy::Minimum, 700);
    scrolled.stack->addWidget(page);
    scrolled.stack->addWidget(createPage(QSizePolicy::Expanding, 700, 100));
    scrolled.area.show();
    QTRY_COMPARE(scrolled.range(), 400);
    QCOMPARE(page->height(), 700);
    scrolled.stack->setCurrentIndex(1);
    QTRY_COMPARE(scrolled.range(), 0);
    scrolled.stack->setCurrentIndex(0);
    QTRY_COMPARE(scrolled.range(), 400);

    // Each change of the content makes the stack's own layout stretch the page.
    for (const int height : {100, 150, 450}) {
        page->layout()->itemAt(0)->widget()->setMinimumHeight(height);
        QTRY_COMPARE(page->height(), height);
        QTRY_COMPARE(scrolled.range(), qMax(height - 300, 0));
    }
}

void TestStackedWidgetFit::comesToRest()
{
    // A stack on a page of a stack: measuring the page must not set off the next measurement.
    ScrolledStack scrolled;
    StackedWidgetFit* inner = nullptr;
    scrolled.stack->addWidget(createNest(100, 350, &inner));
    scrolled.area.show();
    QCOMPARE(unrestOf(scrolled.stack), 0);
    QCOMPARE(inner->height(), 350);
    QCOMPARE(scrolled.range(), 150);

    // Squeezed to nothing beside wrapped text.
    QWidget narrow;
    auto* row = new QHBoxLayout(&narrow);
    auto* outer = new StackedWidgetFit;
    outer->addWidget(createNest(10, 50));
    row->addWidget(outer);
    row->addWidget(createPage(QSizePolicy::Preferred, 0, 50), 1);
    narrow.resize(400, 300);
    narrow.show();
    outer->setMaximumWidth(0);
    QCOMPARE(unrestOf(outer), 0);

    // A neighbour that takes any room: the two must not take it from each other in turns.
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* stack = new StackedWidgetFit;
    stack->addWidget(createPage(QSizePolicy::Minimum, 250));
    layout->addWidget(stack);
    layout->addWidget(new QTextEdit);
    window.resize(400, 400);
    window.show();
    QCOMPARE(unrestOf(stack), 0);
    QCOMPARE(stack->currentWidget()->height(), 250);
}

QTEST_MAIN(TestStackedWidgetFit)
#include "tst_stackedwidgetfit.moc"
