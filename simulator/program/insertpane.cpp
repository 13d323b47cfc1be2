#include "simulator/program/insertpane.h"

#include "simulator/program/editorframe.h"
#include "simulator/program/instructionwriter.h"
#include "simulator/simulatedcontroller.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace sim
{

namespace
{

constexpr int kNameRole = Qt::UserRole;
constexpr int kTreeWidth = 180;
constexpr int kGap = 4;
/// Room for the description of most instructions; longer ones scroll.
constexpr int kDescriptionLines = 4;

QTreeWidgetItem* groupItem(QTreeWidget* tree, const QString& group)
{
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->topLevelItem(i)->data(0, kNameRole) == group) {
            return tree->topLevelItem(i);
        }
    }
    const QString title = pendix::RlRegistry::instance().groupTitle(group);
    auto* item = new QTreeWidgetItem(tree, {title.isEmpty() ? InsertPane::tr("Other instructions") : title});
    item->setData(0, kNameRole, group);
    item->setFlags(Qt::ItemIsEnabled);
    item->setExpanded(true);
    return item;
}

} // namespace

InsertPane::InsertPane(const Program* program, const SimulatedController* controller, QWidget* parent)
    : QWidget(parent),
      m_program(program),
      m_controller(controller),
      m_tree(new QTreeWidget(this)),
      m_words(new QScrollArea(this)),
      m_description(new QLabel),
      m_frame(new EditorFrame(this)),
      m_above(new QPushButton(tr("Insert above"), this)),
      m_below(new QPushButton(tr("Insert below"), this))
{
    m_tree->setObjectName(QStringLiteral("instructionTree"));
    m_tree->setHeaderHidden(true);
    m_tree->setFixedWidth(kTreeWidth);
    m_description->setObjectName(QStringLiteral("instructionDescription"));
    m_description->setTextFormat(Qt::PlainText);
    m_description->setWordWrap(true);
    m_description->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_description->setMargin(4);
    m_above->setObjectName(QStringLiteral("insertAbove"));
    m_below->setObjectName(QStringLiteral("insertBelow"));
    m_words->setWidgetResizable(true);
    m_words->setWidget(m_description);
    m_words->setFrameShape(QFrame::NoFrame);
    fitWords();

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_above);
    buttons->addWidget(m_below);
    auto* picked = new QVBoxLayout;
    picked->setSpacing(kGap);
    picked->addWidget(m_words);
    picked->addWidget(m_frame, 1);
    picked->addLayout(buttons);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kGap, kGap, kGap, kGap);
    layout->addWidget(m_tree);
    layout->addLayout(picked, 1);

    m_tree->setToolTip(tr("A double click starts the editor anew."));
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &InsertPane::showPicked);
    connect(m_tree, &QTreeWidget::itemActivated, this, &InsertPane::showPicked);
    connect(m_above, &QPushButton::clicked, this, [this] { insert(Place::Above); });
    connect(m_below, &QPushButton::clicked, this, [this] { insert(Place::Below); });
    connect(m_frame, &EditorFrame::editorGone, this, [this] { setInsertable(false); });
    connect(controller, &SimulatedController::pointRefused, this,
            [this](const QString& name, const QString& reason) { m_obstacle = tr("%1: %2").arg(name, reason); });
    connect(controller, &SimulatedController::operatorLevelChanged, this, [this] {
        if (m_frame->editor() != nullptr) {
            m_frame->tell({});
        }
    });
    showPicked();
}

void InsertPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitWords();
    }
}

void InsertPane::fitWords()
{
    m_words->setFixedHeight(kDescriptionLines * fontMetrics().lineSpacing() + 3 * m_description->margin());
}

void InsertPane::listInstructions()
{
    m_tree->clear();
    for (const pendix::RlInstruction& instruction : pendix::RlRegistry::instance().instructions()) {
        auto* item = new QTreeWidgetItem(groupItem(m_tree, instruction.group), {instruction.name});
        item->setData(0, kNameRole, instruction.name);
    }
}

bool InsertPane::pick(const QString& name)
{
    const QList<QTreeWidgetItem*> found = m_tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    for (QTreeWidgetItem* item : found) {
        if (item->parent() != nullptr) {
            m_tree->setCurrentItem(nullptr);
            m_tree->setCurrentItem(item);
            return true;
        }
    }
    return false;
}

void InsertPane::showPicked()
{
    m_isOutdated = true;
    while (m_isOutdated && !m_isAsking) {
        m_isOutdated = false;
        m_isAsking = true;
        buildPicked();
        m_isAsking = false;
    }
}

void InsertPane::buildPicked()
{
    const QTreeWidgetItem* item = m_tree->currentItem();
    m_picked = {};
    if (item != nullptr && item->parent() != nullptr) {
        for (const pendix::RlInstruction& instruction : pendix::RlRegistry::instance().instructions()) {
            if (instruction.name == item->data(0, kNameRole)) {
                m_picked = instruction;
            }
        }
    }
    const bool isPicked = !m_picked.name.isEmpty();
    m_description->setText(isPicked ? m_picked.description : tr("Pick an instruction to insert it."));
    QString fault;
    m_frame->setEditor(isPicked ? createEditor(m_picked, EditorRole::Insert, &fault) : nullptr,
                       m_sheets.value(m_picked.name));
    m_frame->tell(fault, EditorFrame::Tone::Refusal);
    setInsertable(m_frame->editor() != nullptr);
}

void InsertPane::setInsertable(bool insertable)
{
    m_above->setEnabled(insertable);
    m_below->setEnabled(insertable);
}

void InsertPane::insert(Place place)
{
    if (m_isAsking) {
        return;
    }
    m_frame->tell({});
    m_obstacle.clear();
    m_isAsking = true;
    const WrittenLine written = writeLine(m_frame->editor(), EditorRole::Insert, m_picked, m_program->recogniser(),
                                          m_controller->operatorLevel());
    m_isAsking = false;
    if (!written.refusal.isEmpty()) {
        m_frame->tell(written.refusal, EditorFrame::Tone::Refusal);
        emit refused(written.refusal);
    } else {
        emit lineWritten(written.text, m_picked.name, place);
        if (!m_obstacle.isEmpty()) {
            m_frame->tell(tr("Inserted, but a point was not stored. %1").arg(m_obstacle), EditorFrame::Tone::Refusal);
        }
    }
    if (m_isOutdated) {
        showPicked();
    }
}

} // namespace sim
