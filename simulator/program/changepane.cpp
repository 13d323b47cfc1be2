#include "simulator/program/changepane.h"

#include "simulator/program/editorframe.h"
#include "simulator/program/instructionline.h"
#include "simulator/program/instructionwriter.h"
#include "simulator/simulatedcontroller.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace sim
{

namespace
{

QLabel* textLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QString roundTripText(const RoundTrip& trip)
{
    if (!trip.fault.isEmpty()) {
        return {};
    }
    return trip.isFaithful()
               ? ChangePane::tr("Round trip: the editor expresses the whole line.")
               : ChangePane::tr("Round trip: filling the editor and reading it back changes the line.\n  now:\t%1\n"
                                "  then:\t%2")
                     .arg(trip.before, trip.after);
}

} // namespace

ChangePane::ChangePane(const Program* program, const SimulatedController* controller, QWidget* parent)
    : QWidget(parent),
      m_program(program),
      m_controller(controller),
      m_match(textLabel("lineMatch", this)),
      m_roundTrip(textLabel("roundTrip", this)),
      m_frame(new EditorFrame(this)),
      m_replace(new QPushButton(tr("Replace line"), this))
{
    m_replace->setObjectName(QStringLiteral("replaceLine"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_replace);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_match);
    layout->addWidget(m_roundTrip);
    layout->addWidget(m_frame, 1);
    layout->addLayout(buttons);
    connect(m_replace, &QPushButton::clicked, this, &ChangePane::replace);
    showRow(-1);
}

void ChangePane::showNothing(const QString& why)
{
    m_instruction = {};
    m_match->setText(why);
    m_roundTrip->clear();
    m_roundTrip->hide();
    m_frame->setEditor(nullptr);
    m_replace->setEnabled(false);
}

void ChangePane::showRow(int row)
{
    m_row = row;
    if (row < 0 || row >= m_program->lines().size()) {
        showNothing(tr("Select a line to change it."));
        return;
    }
    const QString line = m_program->line(row);
    const pendix::RlInstruction* instruction = m_program->recogniser().find(line);
    if (instruction == nullptr) {
        showNothing(Recogniser::isBlank(line)
                        ? tr("Line %1 holds no instruction.").arg(row + 1)
                        : tr("Line %1 is recognised by no instruction. It stays as it is.").arg(row + 1));
        return;
    }
    m_instruction = *instruction;
    m_match->setText(tr("Line %1 is recognised as %2.").arg(QString::number(row + 1), instruction->name));
    const RoundTrip trip = tryRoundTrip(m_instruction, line);
    m_roundTrip->setText(roundTripText(trip));
    m_roundTrip->setVisible(!m_roundTrip->text().isEmpty());
    QString fault;
    m_frame->setEditor(createEditor(m_instruction, EditorRole::Change, &fault));
    m_frame->tell(fault, EditorFrame::Tone::Refusal);
    m_replace->setEnabled(m_frame->editor() != nullptr);
    if (m_frame->editor() != nullptr) {
        // Editors read code; what else stands in the line is the program's.
        m_frame->editor()->FillWith(trip.before);
    }
}

void ChangePane::replace()
{
    m_frame->tell({});
    const WrittenLine written = writeLine(*m_frame->editor(), EditorRole::Change, m_instruction,
                                          m_program->recogniser(), m_controller->operatorLevel());
    if (!written.refusal.isEmpty()) {
        m_frame->tell(written.refusal, EditorFrame::Tone::Refusal);
        emit refused(written.refusal);
        return;
    }
    const QString before = m_program->line(m_row);
    const QString after = withCode(before, written.text);
    if (after == before) {
        m_frame->tell(tr("The line is like this already."));
        return;
    }
    emit lineWritten(m_row, after, m_instruction.name);
}

} // namespace sim
