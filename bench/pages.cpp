// What pages cost, beside the same widgets without style sheets.

#include "bench/benchtable.h"
#include "bench/pageshow.h"
#include "page/laserweldpage.h"
#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "ui_weldsettingpage.h"

#include <QStackedWidget>

#include <memory>

namespace
{

/// A controller with as many signals, half of them outputs. No two controllers have a name in common, so that a list
/// which an earlier one gave is of no use. Like a real one it gives a copy of its own of the unchanged names each
/// time; all are made beforehand, so that making them doesn't count.
class Controller : public FakeHost
{
public:
    explicit Controller(int signalCount)
    {
        static int controllers = 0;
        ++controllers;
        for (QVector<QStringList>* lists : {&m_outputs, &m_inputs}) {
            for (int show = 0; show <= kShows; ++show) {
                QStringList names;
                for (int i = signalCount / 2; i > 0; --i) {
                    names.append(QStringLiteral("%1_%2").arg(controllers).arg(i));
                }
                lists->append(names);
            }
        }
    }

    QStringList getIOByType(const QString& type) override
    {
        return type == QLatin1String("DO") ? m_outputs.at(m_outputReads++) : m_inputs.at(m_inputReads++);
    }
    void log(const pendix::LogStatement& /*statement*/) override {}

private:
    QVector<QStringList> m_outputs;
    QVector<QStringList> m_inputs;
    int m_outputReads = 0;
    int m_inputReads = 0;
};

/// Weld Setup's widgets as the form gives them: the same ones hidden, no sheets, no lists.
class PlainForm : public QWidget
{
public:
    PlainForm()
    {
        m_ui.setupUi(this);
        QWidget* const unused[] = {
            m_ui.pushButton_Retraction,    m_ui.pushButton_WireSticking,        m_ui.comboBox_feedback_di,
            m_ui.label_feedback_di,        m_ui.comboBox_detection_do,          m_ui.label_detection_do,
            m_ui.comboBox_laser_comm_type, m_ui.label_laser_comm_type,          m_ui.comboBox_wire_feed_type,
            m_ui.label_wire_feed_type,     m_ui.comboBox_wire_feeder_comm_type, m_ui.label_wire_feeder_comm_type,
        };
        for (QWidget* widget : unused) {
            widget->hide();
        }
    }

private:
    Ui::WeldSettingPage m_ui;
};

std::unique_ptr<QWidget> weldSetup()
{
    return std::make_unique<WeldSettingPage>(nullptr);
}

std::unique_ptr<QWidget> plainForm()
{
    return std::make_unique<PlainForm>();
}

using Maker = std::unique_ptr<QWidget> (*)();

Contestant firstShow(const QString& name, Maker make, int signalCount)
{
    return {name, [make, signalCount] {
                const Controller host(signalCount);
                const std::unique_ptr<QWidget> page = make();
                page->resize(kScreen);
                return cpuMs([&page] { showNow(*page); });
            }};
}

Contestant constructedAndShown(const QString& name, Maker make)
{
    return {name, [make] {
                const Controller host(0);
                return cpuMs([make] {
                    const std::unique_ptr<QWidget> page = make();
                    page->resize(kScreen);
                    showNow(*page);
                });
            }};
}

Contestant shownAgain(const QString& name, Maker make, int signalCount)
{
    return {name, [make, signalCount] {
                const Controller host(signalCount);
                const std::unique_ptr<QWidget> page = make();
                page->resize(kScreen);
                showNow(*page);
                return shownAgainMs(*page);
            }};
}

template <typename Page>
Contestant styledAgain(const QString& name)
{
    return {name, [] {
                const Controller host(0);
                Page page(nullptr);
                page.resize(kScreen);
                page.initStyle();
                showNow(page);
                return repeated({}, [&page] { page.initStyle(); }).sample();
            }};
}

/// The forms of the main page's pages that are built, the first one shown.
std::unique_ptr<QWidget> plainForms()
{
    auto pages = std::make_unique<QStackedWidget>();
    pages->addWidget(plainForm().release());
    pages->addWidget(plainWeldIo().release());
    pages->addWidget(plainCurves().release());
    return pages;
}

std::unique_ptr<QWidget> styledMainPage()
{
    auto page = std::make_unique<LaserWeldPage>(nullptr);
    page->initStyle();
    return page;
}

} // namespace

void addPageRows(BenchTable& table)
{
    const QString none = QStringLiteral("without signals");
    const QString plain = QStringLiteral("its form without sheets");
    const QString first = QStringLiteral("Weld Setup first shown");
    table.row(firstShow(first + QStringLiteral(", no signals"), weldSetup, 0), firstShow(plain, plainForm, 0), 2.5);
    table.row(constructedAndShown(QStringLiteral("Weld Setup constructed and shown"), weldSetup),
              constructedAndShown(plain, plainForm), 2.5);
    for (const int count : {64, 1000, 10000}) {
        const QString signalCount = QStringLiteral(", %L1 signals").arg(count);
        table.row(firstShow(first + signalCount, weldSetup, count), firstShow(none, weldSetup, 0), 2.0);
    }
    for (const int count : {64, 1000, 10000}) {
        const QString name = QStringLiteral("Weld Setup shown again, %L1 signals").arg(count);
        table.row(shownAgain(name, weldSetup, count), shownAgain(none, weldSetup, 0), 1.25);
    }
    table.row(constructedAndShown(QStringLiteral("main page constructed, styled and shown"), styledMainPage),
              constructedAndShown(QStringLiteral("its pages' forms without sheets"), plainForms), 4.0);
    table.row(styledAgain<WeldSettingPage>(QStringLiteral("Weld Setup styled again")),
              firstShow(QStringLiteral("first shown"), weldSetup, 0), 0.05);
    table.row(styledAgain<LaserWeldPage>(QStringLiteral("main page styled again")),
              firstShow(QStringLiteral("Weld Setup first shown"), weldSetup, 0), 0.05);
}
