#include "simulator/buttonstrip.h"

#include "simulator/pendantbutton.h"

#include <QEvent>
#include <QGridLayout>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace sim
{

namespace
{

constexpr int kMargin = 6;
constexpr int kSpacing = 6;
constexpr int kRowSpacing = 12;

/// The colours of a casing: no sheet, which would cost more and say no more.
QPalette casing()
{
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(0x3b, 0x40, 0x47));
    colours.setColor(QPalette::WindowText, Qt::white);
    colours.setColor(QPalette::Button, QColor(0xe6, 0xe9, 0xec));
    colours.setColor(QPalette::ButtonText, Qt::black);
    colours.setColor(QPalette::Highlight, QColor(0xff, 0xb0, 0x20));
    return colours;
}

/// Guarded: whatever a handler does may end buttons.
QVector<QPointer<PendantButton>> buttonsOf(const QWidget* group)
{
    QVector<QPointer<PendantButton>> buttons;
    for (PendantButton* button : group->findChildren<PendantButton*>()) {
        buttons.append(button);
    }
    return buttons;
}

} // namespace

ButtonStrip::ButtonStrip(const ButtonLists* lists, QWidget* parent) : QScrollArea(parent)
{
    setObjectName(QStringLiteral("buttonStrip"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    content->setObjectName(QStringLiteral("casing"));
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_column->setSpacing(kRowSpacing);
    m_column->addStretch(1);
    setWidget(content);
    content->setPalette(casing());
    content->setAutoFillBackground(true);
    content->installEventFilter(this);
    setVisible(false);

    for (const ButtonList& list : lists->all()) {
        add(list);
    }
    connect(lists, &ButtonLists::given, this, &ButtonStrip::add);
    connect(lists, &ButtonLists::switched, this, &ButtonStrip::setOn);
    connect(lists, &ButtonLists::withdrawn, this, &ButtonStrip::withdraw);
}

QWidget* ButtonStrip::createGroup(const ButtonList& list, QGridLayout* grid)
{
    auto* group = new QWidget(widget());
    group->setLayout(grid);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kSpacing);
    grid->setVerticalSpacing(kRowSpacing);
    int column = 0;
    for (const QList<pendix::PhysicalButton>& records : {list.first, list.second}) {
        if (records.isEmpty()) {
            grid->addWidget(new QWidget(group), 0, column); // a column of nothing would have no gap beside it
        }
        for (int row = 0; row < records.size(); ++row) {
            auto* button = new PendantButton(records.at(row), group);
            button->setObjectName(QStringLiteral("pendantButton_%1_%2_%3")
                                      .arg(list.plugin, QString::number(column + 1), QString::number(row + 1)));
            grid->addWidget(button, row, column);
        }
        ++column;
    }
    group->setEnabled(list.on);
    return group;
}

void ButtonStrip::add(const ButtonList& list)
{
    const auto place = std::find_if(m_groups.begin(), m_groups.end(), [&](const Group& group) {
        return group.plugin == list.plugin && group.name == list.name;
    });
    const int index = static_cast<int>(place - m_groups.begin());
    QWidget* former = place != m_groups.end() ? m_groups.takeAt(index).widget : nullptr;
    if (!list.first.isEmpty() || !list.second.isEmpty()) {
        auto* grid = new QGridLayout;
        QWidget* group = createGroup(list, grid);
        m_column->insertWidget(index, group);
        m_groups.insert(index, {list.plugin, list.name, group, grid});
        group->show();
    }
    retire({former});
}

void ButtonStrip::setOn(const QString& plugin, const QString& name, bool on)
{
    for (const Group& group : qAsConst(m_groups)) {
        if (group.plugin == plugin && group.name == name) {
            const QPointer<QWidget> widget = group.widget;
            for (const QPointer<PendantButton>& button : buttonsOf(widget)) {
                if (!on && button != nullptr) {
                    button->letGo();
                }
            }
            if (widget != nullptr) {
                widget->setEnabled(on);
            }
            return;
        }
    }
}

void ButtonStrip::withdraw(const QString& plugin)
{
    QVector<QPointer<QWidget>> leaving;
    for (int i = m_groups.size() - 1; i >= 0; --i) {
        if (m_groups.at(i).plugin == plugin) {
            leaving.append(m_groups.takeAt(i).widget);
        }
    }
    retire(leaving);
}

/// Deleted later: it may be one of their buttons that is being pressed.
void ButtonStrip::retire(const QVector<QPointer<QWidget>>& groups)
{
    const QPointer<ButtonStrip> self = this;
    for (const QPointer<QWidget>& group : groups) {
        for (const QPointer<PendantButton>& button :
             group != nullptr ? buttonsOf(group) : QVector<QPointer<PendantButton>>()) {
            if (button != nullptr) {
                button->retire();
            }
        }
        if (group != nullptr) {
            group->hide();
            group->deleteLater();
        }
    }
    if (self != nullptr) {
        fit();
    }
}

/// Both columns of all lists as wide as the widest button, also where a list leaves one empty.
void ButtonStrip::alignColumns()
{
    int widest = 0;
    for (const Group& group : qAsConst(m_groups)) {
        for (const QPointer<PendantButton>& button : buttonsOf(group.widget)) {
            widest = qMax(widest, button->sizeHint().width());
        }
    }
    for (const Group& group : qAsConst(m_groups)) {
        // Asks for a new layout even when nothing changes, which would bring us here again.
        if (group.grid->columnMinimumWidth(0) != widest) {
            group.grid->setColumnMinimumWidth(0, widest);
            group.grid->setColumnMinimumWidth(1, widest);
        }
    }
}

void ButtonStrip::fit()
{
    alignColumns();
    const QSize needed = widget()->sizeHint();
    const int bar = needed.height() > height() ? verticalScrollBar()->sizeHint().width() : 0;
    setFixedWidth(needed.width() + bar);
    const bool shown = !m_groups.isEmpty();
    if (shown == isHidden()) {
        setVisible(shown);
        emit shownChanged();
    }
}

bool ButtonStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        fit();
    }
    return QScrollArea::eventFilter(watched, event);
}

void ButtonStrip::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    fit();
}

} // namespace sim
