#include "simulator/program/changepane.h"

#include "simulator/program/editorframe.h"
#include "simulator/simulatedcontroller.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace sim
{

namespace
{

constexpr int kRoundTripLines = 3;

QString roundTripText(const RoundTrip& trip)
{
    return trip.isFaithful()
               ? ChangePane::tr("Round trip: the editor expresses the whole line.")
               : ChangePane::tr("Round trip: filling the editor and reading it back changes the line.\nnow:  %1\n"
                                "then: %2")
                     .arg(trip.before, trip.after);
}

/// Of a fixed number of lines, as a program line may be long: more of it scrolls.
QPlainTextEdit* textView(const char* name, int lines, QWidget* parent)
{
    auto* view = new QPlainTextEdit(parent);
    view->setObjectName(QLatin1String(name));
    view->setReadOnly(true);
    view->setWordWrapMode(QTextOption::WrapAnywhere);
    view->setFrameShape(QFrame::NoFrame);
    view->document()->setDocumentMargin(0);
    QPalette colours = view->palette();
    colours.setColor(QPalette::Base, Qt::transparent);
    view->setPalette(colours);
    view->setFixedHeight(lines * view->fontMetrics().lineSpacing());
    return view;
}

} // namespace

ChangePane::ChangePane(const Program* program, const SimulatedController* controller, QWidget* parent)
    : QWidget(parent),
      m_program(program),
      m_controller(controller),
      m_match(new QLabel(this)),
      m_roundTrip(textView("roundTrip", kRoundTripLines, this)),
      m_frame(new EditorFrame(this)),
      m_replace(new QPushButton(tr("Replace line"), this))
{
    m_match->setObjectName(QStringLiteral("lineMatch"));
    m_match->setTextFormat(Qt::PlainText);
    m_match->setWordWrap(true);
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
    connect(m_frame, &EditorFrame::editorGone, this, [this] { m_replace->setEnabled(false); });
    connect(controller, &SimulatedController::operatorLevelChanged, this, [this] {
        if (m_frame->editor() != nullptr) {
            m_frame->tell({});
        }
    });
    showNothing(tr("Select a line to change it."));
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
    m_nextRow = row;
    while (m_nextRow && !m_isAsking) {
        m_isAsking = true;
        buildRow(*std::exchange(m_nextRow, std::nullopt));
        m_isAsking = false;
    }
}

void ChangePane::buildRow(int row)
{
    const QString line = m_program->line(row);
    // What was typed into an editor outlives a look at something else.
    if (row == m_row && line == m_line && m_frame->editor() != nullptr) {
        return;
    }
    m_row = row;
    m_line = line;
    if (row < 0 || row >= m_program->lines().size()) {
        showNothing(tr("Select a line to change it."));
        return;
    }
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
    showRoundTrip(trip);
    QString fault;
    m_frame->setEditor(createEditor(m_instruction, EditorRole::Change, &fault), m_sheets.value(m_instruction.name));
    if (m_frame->editor() != nullptr) {
        // Editors read code; what else stands in the line is the program's.
        fault = fillEditor(*m_frame->editor(), trip.before);
    }
    m_frame->tell(fault, EditorFrame::Tone::Refusal);
    m_replace->setEnabled(m_frame->editor() != nullptr);
}

void ChangePane::showRoundTrip(const RoundTrip& trip)
{
    m_roundTrip->setPlainText(trip.fault.isEmpty() ? roundTripText(trip) : QString());
    m_roundTrip->setVisible(trip.fault.isEmpty());
}

/// Why the line can't become what was written; empty: it can become after.
QString ChangePane::refusalOf(const QString& line, const WrittenLine& written, QString* after) const
{
    if (!written.refusal.isEmpty()) {
        return written.refusal;
    }
    if (m_program->line(m_row) != line) {
        return tr("Refused: line %1 has become another one meanwhile.").arg(m_row + 1);
    }
    const std::optional<QString> changed = withCode(line, written.text);
    *after = changed.value_or(QString());
    return changed ? QString() : tr("Refused: with  %1  the line would lose its comment.").arg(written.text);
}

void ChangePane::replace()
{
    if (m_isAsking) {
        return;
    }
    m_frame->tell({});
    m_isAsking = true;
    const WrittenLine written = writeLine(m_frame->editor(), EditorRole::Change, m_instruction, m_program->recogniser(),
                                          m_controller->operatorLevel());
    m_isAsking = false;
    QString after;
    const QString refusal = refusalOf(m_line, written, &after);
    if (!refusal.isEmpty()) {
        m_frame->tell(refusal, EditorFrame::Tone::Refusal);
        emit refused(refusal);
    } else if (after == m_line) {
        m_frame->tell(tr("The line is like this already."));
    } else {
        emit lineWritten(m_row, after, m_instruction.name);
    }
    if (m_nextRow) {
        showRow(*m_nextRow);
    }
}

} // namespace sim
