#include "simulator/program/programeditor.h"

#include "simulator/program/changepane.h"
#include "simulator/program/programfile.h"

#include <QAction>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace sim
{

namespace
{

constexpr int kInstructionWidth = 150;
constexpr int kRowGap = 1;
/// Fixed, so that a word or an editor that comes does not make the window grow: both can be scrolled.
constexpr QSize kSmallest(560, 360);
/// Height of the lines and of the panes, as parts of what there is: the largest editor is seen whole.
constexpr int kLinesPart = 13;
constexpr int kPanesPart = 29;

QString chooseByDialog(QWidget* parent, FileUse use, const QString& current)
{
    const bool isOpen = use == FileUse::Open;
    QFileDialog dialog(parent, isOpen ? ProgramEditor::tr("Open program") : ProgramEditor::tr("Save program"));
    dialog.setAcceptMode(isOpen ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(isOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilters({ProgramEditor::tr("Robot programs (*.rl)"), ProgramEditor::tr("All files (*)")});
    dialog.setDefaultSuffix(QStringLiteral("rl"));
    dialog.selectFile(current.isEmpty() && !isOpen ? QStringLiteral("weld.rl") : current);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QTableView* createTable(Program* program, QWidget* parent)
{
    auto* table = new QTableView(parent);
    table->setObjectName(QStringLiteral("programLines"));
    table->setModel(program);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setWordWrap(false);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + kRowGap);
    table->setTextElideMode(Qt::ElideRight);
    table->horizontalHeader()->setSectionResizeMode(Program::Text, QHeaderView::Stretch);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->resizeSection(Program::Instruction, kInstructionWidth);
    table->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return table;
}

} // namespace

ProgramEditor::ProgramEditor(const SimulatedController* controller, QWidget* parent)
    : QWidget(parent),
      m_program(new Program(this)),
      m_insert(new InsertPane(m_program, controller, this)),
      m_change(new ChangePane(m_program, controller, this)),
      m_table(createTable(m_program, this)),
      m_panes(new QTabWidget(this)),
      m_fileLabel(new QLabel(this)),
      m_choose([this](FileUse use, const QString& current) { return chooseByDialog(this, use, current); })
{
    setObjectName(QStringLiteral("programEditor"));
    setMinimumSize(kSmallest);
    m_panes->setObjectName(QStringLiteral("programPanes"));
    m_panes->addTab(m_insert, tr("Insert"));
    m_panes->addTab(m_change, tr("Change"));
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(m_table);
    splitter->addWidget(m_panes);
    splitter->setStretchFactor(0, kLinesPart);
    splitter->setStretchFactor(1, kPanesPart);
    splitter->setSizes({kLinesPart * kSmallest.height(), kPanesPart * kSmallest.height()});
    splitter->setChildrenCollapsible(false);
    auto* bar = new QHBoxLayout;
    createFileBar(bar);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(splitter, 1);

    auto* remove = new QShortcut(QKeySequence::Delete, m_table);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &ProgramEditor::removeSelected);
    connect(m_insert, &InsertPane::lineWritten, this, &ProgramEditor::insert);
    connect(m_insert, &InsertPane::refused, this, &ProgramEditor::refused);
    connect(m_change, &ChangePane::lineWritten, m_program, &Program::replaceLine);
    connect(m_change, &ChangePane::refused, this, &ProgramEditor::refused);
    connect(m_program, &Program::edited, this, &ProgramEditor::followEdit);
    connect(m_program->undoStack(), &QUndoStack::cleanChanged, this, &ProgramEditor::showFile);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ProgramEditor::showSelected);
    connect(m_panes, &QTabWidget::currentChanged, this, &ProgramEditor::showSelected);
    connect(m_table, &QTableView::doubleClicked, this, [this] { m_panes->setCurrentWidget(m_change); });
    showSelected();
    showFile();
}

ProgramEditor::~ProgramEditor()
{
    // The history is emptied, and says so, when this is no editor any more.
    disconnect(m_program->undoStack(), nullptr, this, nullptr);
}

void ProgramEditor::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        // A table hands its font to its rows' header only.
        m_table->horizontalHeader()->setFont(font());
    }
}

void ProgramEditor::createFileBar(QHBoxLayout* bar)
{
    addButton(bar, "programNew", tr("New"), {}, [this] { newProgram(); });
    addButton(bar, "programOpen", tr("Open..."), QStringLiteral("Ctrl+O"), [this] { openProgram(); });
    addButton(bar, "programSave", tr("Save"), QStringLiteral("Ctrl+S"), [this] { saveProgram(); });
    addButton(bar, "programSaveAs", tr("Save as..."), {}, [this] { saveProgramAs(); });
    bar->addSpacing(12);
    QUndoStack* history = m_program->undoStack();
    QAction* undo = history->createUndoAction(this, tr("Undo"));
    QAction* redo = history->createRedoAction(this, tr("Redo"));
    // On the buttons; what exactly is undone stands in their tips.
    undo->setIconText(tr("Undo"));
    redo->setIconText(tr("Redo"));
    addActionButton(bar, "programUndo", undo, QStringLiteral("Ctrl+Z"));
    addActionButton(bar, "programRedo", redo, QStringLiteral("Ctrl+Y"));
    m_delete = addButton(bar, "programDelete", tr("Delete line"), {}, [this] { removeSelected(); });
    bar->addSpacing(12);
    m_fileLabel->setObjectName(QStringLiteral("programFile"));
    m_fileLabel->setTextFormat(Qt::PlainText);
    // A long name is cut rather than making the window wider.
    m_fileLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar->addWidget(m_fileLabel, 1);
}

QAction* ProgramEditor::addButton(QHBoxLayout* bar, const char* name, const QString& text, const QString& shortcut,
                                  const std::function<void()>& act)
{
    auto* action = new QAction(text, this);
    // Without this a button would leave out the dots at the end.
    action->setIconText(text);
    connect(action, &QAction::triggered, this, act);
    addActionButton(bar, name, action, shortcut);
    return action;
}

void ProgramEditor::addActionButton(QHBoxLayout* bar, const char* name, QAction* action, const QString& shortcut)
{
    action->setShortcut(QKeySequence(shortcut));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setDefaultAction(action);
    bar->addWidget(button);
}

void ProgramEditor::setEditorSheet(const QStringList& instructions, const QString& sheet)
{
    for (const QString& instruction : instructions) {
        m_sheets.insert(instruction, sheet);
    }
    m_insert->setSheets(m_sheets);
    m_change->setSheets(m_sheets);
}

void ProgramEditor::readRegistry()
{
    m_program->setInstructions(pendix::RlRegistry::instance().instructions());
    m_insert->listInstructions();
    m_change->showRow(-1);
    showSelected();
    for (const QString& fault : m_program->recogniser().faults()) {
        if (!m_reportedFaults.contains(fault)) {
            m_reportedFaults.append(fault);
            emit notice(fault);
        }
    }
}

int ProgramEditor::selectedRow() const
{
    return m_table->currentIndex().row();
}

void ProgramEditor::selectRow(int row)
{
    m_table->setCurrentIndex(m_program->index(row, Program::Text));
}

void ProgramEditor::insert(const QString& line, const QString& instruction, InsertPane::Place place)
{
    const bool above = place == InsertPane::Place::Above;
    const int selected = selectedRow();
    const int nowhere = above ? 0 : m_program->rowCount();
    m_program->insertLine(selected < 0 ? nowhere : selected + (above ? 0 : 1), line, instruction);
}

void ProgramEditor::followEdit(int row)
{
    selectRow(row);
    showSelected();
}

void ProgramEditor::showSelected()
{
    m_delete->setEnabled(selectedRow() >= 0);
    // Editors ask the controller for its lists: only what is looked at is built.
    if (m_panes->currentWidget() == m_change && !m_program->isBeingEdited()) {
        m_change->showRow(selectedRow());
    }
}

void ProgramEditor::removeSelected()
{
    m_program->removeLine(selectedRow());
}

void ProgramEditor::showFile()
{
    const QString name = m_file.isEmpty() ? tr("new program") : QFileInfo(m_file).fileName();
    // The mark first: a long name is cut at its end.
    m_fileLabel->setText(m_program->isModified() ? tr("Not saved: %1").arg(name) : name);
    m_fileLabel->setToolTip(m_file.toHtmlEscaped());
}

void ProgramEditor::afterSaving(const std::function<void()>& act)
{
    if (!m_program->isModified()) {
        act();
        return;
    }
    auto* box = new QMessageBox(QMessageBox::Question, tr("Program"), tr("The program has changes that are not saved."),
                                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box->setObjectName(QStringLiteral("unsavedChanges"));
    box->setDefaultButton(QMessageBox::Save);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QMessageBox::finished, this, [this, act](int answer) {
        if (answer == QMessageBox::Discard || (answer == QMessageBox::Save && saveProgram())) {
            act();
        }
    });
    box->open();
}

void ProgramEditor::newProgram()
{
    afterSaving([this] {
        m_file.clear();
        m_program->load({});
        showSelected();
        showFile();
    });
}

void ProgramEditor::openProgram()
{
    afterSaving([this] {
        const QString file = m_choose(FileUse::Open, m_file);
        if (!file.isEmpty()) {
            open(file);
        }
    });
}

bool ProgramEditor::open(const QString& file)
{
    FileFault fault;
    const std::optional<QStringList> lines = loadProgram(file, &fault);
    if (!lines) {
        emit notice(tr("The program was not opened: %1").arg(fault.message()));
        return false;
    }
    m_file = file;
    m_program->load(*lines);
    selectRow(0);
    showSelected();
    showFile();
    return true;
}

bool ProgramEditor::saveProgram()
{
    return m_file.isEmpty() ? saveProgramAs() : save(m_file);
}

bool ProgramEditor::saveProgramAs()
{
    const QString file = m_choose(FileUse::Save, m_file);
    return !file.isEmpty() && save(file);
}

bool ProgramEditor::save(const QString& file)
{
    const QString reason = sim::saveProgram(file, m_program->lines());
    if (!reason.isEmpty()) {
        emit notice(tr("The program was not saved to %1: %2").arg(file, reason));
        return false;
    }
    m_file = file;
    m_program->undoStack()->setClean();
    showFile();
    return true;
}

} // namespace sim
