#include "simulator/cellfile.h"
#include "simulator/program/changepane.h"
#include "simulator/program/instructionwriter.h"
#include "simulator/program/programeditor.h"
#include "simulator/simulatedcontroller.h"
#include "simulator/userinput.h"

#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

using namespace sim;

namespace
{

/// What the editors below were asked, in order, and what they answer.
QStringList asked;
bool agrees = true;
QString written;
std::function<void()> meanwhile; ///< happens while an editor is asked for its line

class RecordingEditor : public pendix::RLContentBase
{
public:
    void FillWith(const QString& line) override
    {
        asked.append("FillWith " + line);
        m_line = line;
    }
    QString ToString() override
    {
        asked.append("ToString");
        if (meanwhile) {
            std::exchange(meanwhile, nullptr)();
        }
        return written.isNull() ? m_line : written;
    }
    bool CheckInsert() override
    {
        asked.append("CheckInsert");
        return agrees;
    }
    bool CheckReplace() override
    {
        asked.append("CheckReplace");
        return agrees;
    }

private:
    QString m_line;
};

} // namespace

class TestProgramEditor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void instructionsAreListed();
    void linesAreInserted();
    void refusalsAreShown_data();
    void refusalsAreShown();
    void changeAsksInOrder();
    void changeKeepsTheRestOfTheLine();
    void roundTripIsTold();
    void editorsThatMisbehave();
    void whatHappensMeanwhile();
    void pointsNotStoredAreTold();
    void foreignLinesStay();
    void editsAreUndone();
    void filesAreKept();
    void unsavedChangesAreAskedFor_data();
    void unsavedChangesAreAskedFor();

private:
    template <typename T = QWidget>
    T* find(const char* name) const
    {
        T* widget = m_editor->findChild<T*>(QLatin1String(name));
        return widget != nullptr ? widget : (qFatal("no %s", name), nullptr);
    }
    void click(const char* name) const { QCOMPARE(userinput::click(find(name)), QString()); }
    void insert(const QString& line);
    void showChange() const { find<QTabWidget>("programPanes")->setCurrentIndex(1); }
    QStringList lines() const { return m_editor->program()->lines(); }

    QTemporaryDir m_folder;
    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<ProgramEditor> m_editor;
};

void TestProgramEditor::init()
{
    pendix::RLManager manager;
    const auto factory = [] { return new RecordingEditor; };
    manager.createPattern("Weave", R"(^\s*Weave\(\d+\);\s*(?://.*)?$)");
    manager.createInsertWidget("Weave", factory);
    manager.createPropertyWidget("Weave", factory);
    manager.createInsDescribe("Weave", "about Weave");
    manager.createTypeToGroup("G", "Weave");
    manager.createPattern("Wire", R"(^\s*Wire\(\s*\d+\s*\);\s*(?://.*)?$)");
    manager.createSkeleton("Wire", "Wire($Speed [1-100]:#spn#1,100#true$);");
    manager.createInsDefault("Wire", "Wire(50);");
    manager.createTypeToGroup("G", "Wire");
    manager.createTypeToGroup("H", "Bare");
    manager.createInsertWidget("Empty", [] { return nullptr; });
    manager.createTypeToGroup("H", "Empty");
    manager.createInsertWidget("Throws", []() -> pendix::RLContentBase* { throw std::runtime_error("no paper"); });
    manager.createTypeToGroup("H", "Throws");
    manager.createGroups("Group G", "G");

    FileFault fault;
    std::optional<Cell> cell = loadCell(SHIPPED_CELL, &fault);
    QVERIFY2(cell.has_value(), qPrintable(fault.message()));
    m_controller = std::make_unique<SimulatedController>(*std::move(cell));
    m_editor = std::make_unique<ProgramEditor>(m_controller.get());
    m_editor->readRegistry();
    m_editor->resize(900, 600);
    m_editor->show();
    asked.clear();
    agrees = true;
    written = "Weave(1);";
    meanwhile = nullptr;
}

void TestProgramEditor::cleanup()
{
    m_editor.reset();
    pendix::RlRegistry::instance().clear();
}

void TestProgramEditor::insert(const QString& line)
{
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    written = line;
    click("insertBelow");
    written = QString();
    asked.clear();
}

void TestProgramEditor::instructionsAreListed()
{
    const auto* tree = find<QTreeWidget>("instructionTree");
    QCOMPARE(tree->topLevelItemCount(), 2);
    QCOMPARE(tree->topLevelItem(0)->text(0), QString("Group G"));
    QCOMPARE(tree->topLevelItem(0)->childCount(), 2);
    QCOMPARE(tree->topLevelItem(1)->text(0), QString("Other instructions"));
    // Why there is no editor is said in place of it.
    const auto* word = m_editor->insertPane()->findChild<QLabel*>("editorWord");
    for (const auto& [name, words] :
         {std::pair("Bare", "no editor"), {"Empty", "gave no editor"}, {"Throws", "paper"}}) {
        QVERIFY(m_editor->insertPane()->pick(name));
        QVERIFY2(word->isVisible() && word->text().contains(words), qPrintable(word->text()));
        QVERIFY(!find("insertBelow")->isEnabled());
    }
    QVERIFY(!m_editor->insertPane()->pick("Group G"));
}

void TestProgramEditor::linesAreInserted()
{
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    QCOMPARE(find<QLabel>("instructionDescription")->text(), QString("about Weave"));
    const QPointer<pendix::RLContentBase> first = m_editor->findChild<pendix::RLContentBase*>();
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    QVERIFY(first == nullptr);
    click("insertBelow");
    QCOMPARE(asked, QStringList({"CheckInsert", "ToString"}));
    // A template's form starts with the default line and needs no plug-in.
    QVERIFY(m_editor->insertPane()->pick("Wire"));
    click("insertBelow");
    QCOMPARE(m_editor->selectedRow(), 1);
    insert("Weave(3);");
    written = "Weave(2);";
    click("insertAbove");
    QCOMPARE(lines(), QStringList({"Weave(1);", "Wire(50);", "Weave(2);", "Weave(3);"}));
    QCOMPARE(m_editor->selectedRow(), 2);
}

void TestProgramEditor::refusalsAreShown_data()
{
    QTest::addColumn<bool>("agrees");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("words");
    const auto row = [](bool agrees, const char* written, const char* words) {
        QTest::newRow(words) << agrees << written << words;
    };
    row(false, "Weave(9);", "at operator level 5 the editor of Weave");
    row(true, "Wire(9);", "no line of Weave");
    row(true, "Weave(1);\nWeave(2);", "can't be a line");
}

void TestProgramEditor::refusalsAreShown()
{
    QFETCH(bool, agrees);
    QFETCH(QString, written);
    QFETCH(QString, words);
    insert("Weave(1);");
    QSignalSpy refused(m_editor.get(), &ProgramEditor::refused);
    ::agrees = agrees;
    ::written = written;
    click("insertBelow");
    QVERIFY(m_editor->insertPane()->findChild<QLabel*>("editorWord")->text().contains(words));
    m_editor->selectRow(0);
    showChange();
    click("replaceLine");
    QCOMPARE(refused.size(), 2);
    QVERIFY2(refused.at(1).at(0).toString().contains(words), qPrintable(refused.at(1).at(0).toString()));
    QCOMPARE(lines(), QStringList({"Weave(1);"}));
    QCOMPARE(asked.count("ToString"), agrees ? 3 : 1); // the round trip's is always asked
}

void TestProgramEditor::changeAsksInOrder()
{
    insert("Weave(1);");
    showChange();
    // One editor for the round trip, then the one that is shown.
    QCOMPARE(asked, QStringList({"FillWith Weave(1);", "ToString", "FillWith Weave(1);"}));
    asked.clear();
    written = "Weave(2);";
    click("replaceLine");
    QCOMPARE(asked.mid(0, 2), QStringList({"CheckReplace", "ToString"}));
    QCOMPARE(lines(), QStringList({"Weave(2);"}));
    // What is not looked at is not built.
    find<QTabWidget>("programPanes")->setCurrentIndex(0);
    asked.clear();
    insert("Weave(3);");
    QVERIFY(!asked.contains("FillWith Weave(3);"));
}

void TestProgramEditor::changeKeepsTheRestOfTheLine()
{
    m_editor->program()->load({"  Weave(1);  // first"});
    m_editor->selectRow(0);
    written = QString();
    showChange();
    QVERIFY(asked.contains("FillWith Weave(1);"));
    click("replaceLine");
    QVERIFY(!m_editor->program()->isModified()); // the same again is no edit
    written = "Weave(2);";
    click("replaceLine");
    QCOMPARE(lines(), QStringList({"  Weave(2);  // first"}));
    // A quote that stays open would take the comment in.
    QCOMPARE(withCode("Weave(1); // first", "Weave(\"1);"), std::nullopt);
    // What was typed outlives a look at the other pane.
    m_editor->program()->load({"Wire(7);"});
    m_editor->selectRow(0);
    find<QSpinBox>("field1")->setValue(8);
    find<QTabWidget>("programPanes")->setCurrentIndex(0);
    showChange();
    QCOMPARE(find<QSpinBox>("field1")->value(), 8);
}

void TestProgramEditor::roundTripIsTold()
{
    m_editor->program()->load({"Wire( 250 );", "Wire(7);"});
    m_editor->selectRow(0);
    showChange();
    const auto* trip = find<QPlainTextEdit>("roundTrip");
    QVERIFY2(trip->toPlainText().contains("Wire( 250 );") && trip->toPlainText().contains("Wire(100);"),
             qPrintable(trip->toPlainText()));
    m_editor->selectRow(1);
    QVERIFY(trip->toPlainText().contains("expresses the whole line"));
    QCOMPARE(lines().first(), QString("Wire( 250 );"));
}

void TestProgramEditor::editorsThatMisbehave()
{
    insert("Weave(1);");
    const auto* word = m_editor->insertPane()->findChild<QLabel*>("editorWord");
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    meanwhile = [] { throw std::runtime_error("no paper"); };
    click("insertBelow");
    QVERIFY2(word->text().contains("no paper"), qPrintable(word->text()));
    // One that goes away takes its buttons with it.
    delete m_editor->insertPane()->findChild<pendix::RLContentBase*>();
    QVERIFY(!find("insertBelow")->isEnabled());
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    QVERIFY(find("insertBelow")->isEnabled());
    meanwhile = [] { throw 5; };
    showChange();
    QVERIFY(!find("roundTrip")->isVisible());
    QCOMPARE(lines().size(), 1);
}

void TestProgramEditor::whatHappensMeanwhile()
{
    m_editor->program()->load({"Weave(1);", "Weave(1); // b", "Wire(7);"});
    m_editor->selectRow(0);
    showChange();
    const QPointer<pendix::RLContentBase> editor =
        m_editor->findChild<ChangePane*>()->findChild<pendix::RLContentBase*>();
    meanwhile = [this] {
        m_editor->selectRow(1);
        click("replaceLine"); // a second press does nothing
    };
    written = "Weave(2);";
    click("replaceLine");
    QCOMPARE(lines(), QStringList({"Weave(2);", "Weave(1); // b", "Wire(7);"}));
    QVERIFY(editor == nullptr);

    // The line itself may change or go.
    m_editor->selectRow(1);
    meanwhile = [this] { m_editor->program()->removeLine(1); };
    click("replaceLine");
    QCOMPARE(lines(), QStringList({"Weave(2);", "Wire(7);"}));

    // An undo that comes while the editor of the line that is back is being built.
    m_editor->program()->replaceLine(0, "Weave(4);", "Weave");
    m_editor->program()->replaceLine(0, "Weave(5);", "Weave");
    meanwhile = [this] { click("programUndo"); };
    click("programUndo");
    QCOMPARE(lines(), QStringList({"Weave(2);", "Wire(7);"}));

    find<QTabWidget>("programPanes")->setCurrentIndex(0);
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    meanwhile = [this] { m_editor->insertPane()->pick("Wire"); };
    written = "Weave(3);";
    click("insertBelow");
    QVERIFY(lines().contains("Weave(3);"));
    QVERIFY(m_editor->insertPane()->findChild<QSpinBox*>("field1") != nullptr);
}

void TestProgramEditor::pointsNotStoredAreTold()
{
    QVERIFY(m_editor->insertPane()->pick("Weave"));
    m_controller->setConnected(false);
    meanwhile = [this] { m_controller->addPoint("p1", false, "tool0", "wobj0"); };
    click("insertBelow");
    QCOMPARE(lines().size(), 1);
    const QString word = m_editor->insertPane()->findChild<QLabel*>("editorWord")->text();
    QVERIFY2(word.contains("a point was not stored. p1"), qPrintable(word));
}

void TestProgramEditor::foreignLinesStay()
{
    m_editor->program()->load({"MoveAbsJ(Home);", "", "// note", "Weave(1);"});
    QStringList marks;
    for (int row = 0; row < 4; ++row) {
        marks.append(m_editor->program()->index(row, Program::Instruction).data().toString());
    }
    QCOMPARE(marks, QStringList({"unrecognised", "", "", "Weave"}));
    showChange();
    for (const auto& [row, words] : {std::pair(0, "recognised by no instruction"), {1, "no instruction"}}) {
        m_editor->selectRow(row);
        QVERIFY(find<QLabel>("lineMatch")->text().contains(words));
        QVERIFY(!find("replaceLine")->isEnabled());
    }
}

void TestProgramEditor::editsAreUndone()
{
    insert("Weave(1);");
    insert("Weave(2);");
    m_editor->program()->replaceLine(0, "Weave(9);", "Weave");
    click("programDelete"); // the changed line is the selected one
    QCOMPARE(lines(), QStringList({"Weave(2);"}));
    const QVector<QStringList> before = {{"Weave(9);", "Weave(2);"}, {"Weave(1);", "Weave(2);"}, {"Weave(1);"}, {}};
    for (const QStringList& program : before) {
        click("programUndo");
        QCOMPARE(lines(), program);
    }
    QVERIFY(!m_editor->program()->isModified());
    for (int i = 0; i < before.size(); ++i) {
        click("programRedo");
    }
    QCOMPARE(lines(), QStringList({"Weave(2);"}));
    click("programDelete");
    QVERIFY(lines().isEmpty());
    QVERIFY(!find("programDelete")->isEnabled());
}

void TestProgramEditor::filesAreKept()
{
    QString file = m_folder.filePath("one.rl");
    QVector<FileUse> uses;
    m_editor->setFileChooser([&](FileUse use, const QString&) {
        uses.append(use);
        return file;
    });
    QSignalSpy notices(m_editor.get(), &ProgramEditor::notice);
    insert("Weave(1);");
    click("programSave");
    QVERIFY(!m_editor->program()->isModified());
    insert("Weave(2);");
    click("programSave"); // into the same file, without asking
    click("programNew");
    QVERIFY(lines().isEmpty());
    click("programOpen");
    QCOMPARE(lines(), QStringList({"Weave(1);", "Weave(2);"}));
    QCOMPARE(uses, QVector<FileUse>({FileUse::Save, FileUse::Open}));
    QVERIFY(notices.isEmpty());

    // A file that can't be read leaves the program as it is and says where.
    QFile spoilt(file);
    QVERIFY(spoilt.open(QIODevice::Append));
    spoilt.write("\xff\n");
    spoilt.close();
    click("programOpen");
    QCOMPARE(notices.size(), 1);
    QVERIFY2(notices.at(0).at(0).toString().contains("one.rl:3:"), qPrintable(notices.at(0).at(0).toString()));
    QCOMPARE(lines().size(), 2);
    // Neither does a failed save count as one.
    insert("Weave(3);");
    QVERIFY(!m_editor->save(m_folder.filePath("no folder/x.rl")));
    QCOMPARE(notices.size(), 2);
    QVERIFY(m_editor->program()->isModified());
}

void TestProgramEditor::unsavedChangesAreAskedFor_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("save") << int(QMessageBox::Save) << true << true;
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
    QTest::newRow("save, then none") << int(QMessageBox::SaveAll) << false << false;
}

void TestProgramEditor::unsavedChangesAreAskedFor()
{
    QFETCH(int, answer);
    QFETCH(bool, goesOn);
    QFETCH(bool, isSaved);
    QString file = m_folder.filePath(QStringLiteral("asked%1.rl").arg(answer));
    const bool changesMind = answer == QMessageBox::SaveAll;
    m_editor->setFileChooser([&](FileUse, const QString&) { return changesMind ? QString() : file; });
    insert("Weave(1);");
    click("programNew");
    QCOMPARE(lines().size(), 1);
    auto* box = find<QMessageBox>("unsavedChanges");
    box->button(changesMind ? QMessageBox::Save : static_cast<QMessageBox::StandardButton>(answer))->click();
    QCOMPARE(lines().isEmpty(), goesOn);
    QCOMPARE(QFile::exists(file), isSaved);
}

QTEST_MAIN(TestProgramEditor)
#include "tst_programeditor.moc"
