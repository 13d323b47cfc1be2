#include "simulator/tour.h"

#include "simulator/buttontour.h"
#include "simulator/pluginarea.h"
#include "simulator/programtour.h"
#include "simulator/toursteps.h"
#include "simulator/userinput.h"

#include <QPixmap>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <cstdio>

namespace sim
{

namespace
{

/// Longer than the animation of a switch, so that a picture shows it at rest.
constexpr int kSettleMs = 350;

QString joined(const QStringList& texts)
{
    return texts.isEmpty() ? Tour::tr("nothing") : texts.join(QStringLiteral("\n                   "));
}

QString described(const JournalEntry& entry)
{
    return entry.kind == EntryKind::Message ? entry.level + QLatin1String(": ") + entry.text
                                            : entry.subject + QLatin1Char(' ') + entry.text;
}

} // namespace

Tour::Tour(PendantWindow* window, SimulatedController* controller, const Journal* journal, const QDir& folder)
    : m_window(window), m_controller(controller), m_journal(journal), m_folder(folder), m_out(stdout)
{
}

int Tour::run()
{
    m_window->show();
    // Its steps are the welding package's, whichever plug-in was loaded first.
    auto* area = m_window->findChild<PluginArea*>();
    area->setCurrentWidget(area->pageOf(QStringLiteral("Corvane")));
    for (const Step& step : tourSteps() + programSteps() + buttonSteps()) {
        runStep(step);
        if (m_number == 1 && m_failed > 0) {
            m_out << tr("\nThe other steps need this one.");
            break;
        }
    }
    m_out << (m_failed == 0 ? tr("\nAll %1 steps went as they should. ").arg(QString::number(m_number))
                            : tr("\n%1 of %2 steps did not go as they should. ")
                                  .arg(QString::number(m_failed), QString::number(m_number)))
          << tr("Pictures: %1\n").arg(m_folder.absolutePath());
    m_out.flush();
    return m_failed;
}

void Tour::runStep(const Step& step)
{
    ++m_number;
    m_mark = m_journal->size();
    m_said.clear();
    m_complaints.clear();
    userinput::settle(kSettleMs);
    step.act(*this);
    userinput::settle(kSettleMs);
    const QString picture = takePicture(step.picture);
    if (!m_complaints.isEmpty()) {
        ++m_failed;
    }
    print(tr(step.title), picture);
}

void Tour::print(const QString& title, const QString& picture)
{
    QStringList commands;
    for (const JournalEntry* entry : entries(EntryKind::Command)) {
        commands.append(described(*entry) + (entry->untold ? tr("  [operator was told nothing]") : QString()));
    }
    QStringList messages;
    for (const JournalEntry* entry : entries(EntryKind::Message)) {
        messages.append(described(*entry));
    }
    const QString verdict = m_complaints.isEmpty() ? tr("ok    ") : tr("FAILED");
    m_out << QString::number(m_number).rightJustified(2) << QLatin1String("  ") << verdict << QLatin1String("  ")
          << title << QLatin1Char('\n');
    m_out << tr("   controller got: %1\n").arg(joined(commands));
    m_out << tr("   operator told:  %1\n").arg(joined(messages));
    m_out << tr("   picture:        %1\n").arg(picture);
    for (const QString& line : qAsConst(m_said)) {
        m_out << QStringLiteral("      | %1\n").arg(line);
    }
    for (const QString& complaint : qAsConst(m_complaints)) {
        m_out << tr("   NOT AS IT SHOULD BE: %1\n").arg(complaint);
    }
    m_out.flush();
}

QString Tour::takePicture(const char* name)
{
    QString file = QStringLiteral("%1-%2.png")
                       .arg(QString::number(m_number).rightJustified(2, QLatin1Char('0')), QLatin1String(name));
    expect(m_window->grab().save(m_folder.filePath(file)), tr("the picture %1 can't be written").arg(file));
    return file;
}

QList<const JournalEntry*> Tour::entries(EntryKind kind) const
{
    QList<const JournalEntry*> found;
    for (int i = m_mark; i < m_journal->size(); ++i) {
        if (m_journal->at(i).kind == kind) {
            found.append(&m_journal->at(i));
        }
    }
    return found;
}

void Tour::click(const QString& objectName)
{
    QWidget* widget = m_window->findShown(objectName);
    expect(widget != nullptr, tr("there is no visible %1").arg(objectName));
    if (widget != nullptr) {
        click(widget);
    }
}

void Tour::click(QWidget* widget)
{
    const QString obstacle = userinput::click(widget);
    expect(obstacle.isEmpty(), obstacle);
    userinput::settle(0);
}

void Tour::type(const QString& objectName, const QString& text)
{
    QWidget* widget = m_window->findShown(objectName);
    const QString obstacle =
        widget != nullptr ? userinput::type(widget, text) : tr("there is no visible %1").arg(objectName);
    expect(obstacle.isEmpty(), obstacle);
}

void Tour::openTab(const char* tabs, const QString& text)
{
    auto* widget = m_window->findChild<QTabWidget*>(QLatin1String(tabs));
    for (int tab = 0; widget != nullptr && tab < widget->count(); ++tab) {
        if (widget->tabText(tab) == text) {
            const QString obstacle = userinput::click(widget->tabBar(), widget->tabBar()->tabRect(tab).center());
            expect(obstacle.isEmpty(), obstacle);
            return;
        }
    }
    expect(false, tr("there should be a tab %1").arg(text));
}

void Tour::expect(bool holds, const QString& words)
{
    if (!holds) {
        m_complaints.append(words);
    }
}

void Tour::expectCommands(const QStringList& commands)
{
    const QList<const JournalEntry*> got = entries(EntryKind::Command);
    const bool same = std::equal(got.cbegin(), got.cend(), commands.cbegin(), commands.cend(),
                                 [](const JournalEntry* entry, const QString& command) {
                                     return command.contains(QLatin1Char(' ')) ? described(*entry) == command
                                                                               : entry->subject == command;
                                 });
    expect(same, tr("the controller should have got: %1").arg(joined(commands)));
}

void Tour::expectMessages(const QStringList& messages)
{
    QStringList told;
    for (const JournalEntry* entry : entries(EntryKind::Message)) {
        told.append(described(*entry));
    }
    expect(told == messages, tr("the operator should have been told: %1").arg(joined(messages)));
}

void Tour::expectUntold()
{
    const QList<const JournalEntry*> commands = entries(EntryKind::Command);
    expect(std::all_of(commands.cbegin(), commands.cend(), [](const JournalEntry* entry) { return entry->untold; }),
           tr("the journal should have marked that the operator was told nothing"));
}

bool Tour::isEnabled(const QString& objectName) const
{
    const QWidget* widget = m_window->findShown(objectName);
    return widget != nullptr && widget->isEnabled();
}

} // namespace sim
