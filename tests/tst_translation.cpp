#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "plugin/corvane.h"
#include "tests/fakehost.h"

#include <QComboBox>
#include <QFile>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

#include <memory>

using pendix::RlRegistry;

namespace
{

using Source = QPair<QString, QString>; ///< context and English text

struct Translation {
    QString text;
    bool isFinished = false;
};

QMap<Source, Translation> readTranslations(const char* file)
{
    QFile ts(file);
    if (!ts.open(QIODevice::ReadOnly)) {
        qFatal("%s: %s", file, qPrintable(ts.errorString()));
    }
    QMap<Source, Translation> all;
    Source source;
    QXmlStreamReader reader(&ts);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement()) {
            continue;
        }
        if (reader.name() == QLatin1String("name")) {
            source.first = reader.readElementText();
        } else if (reader.name() == QLatin1String("source")) {
            source.second = reader.readElementText();
        } else if (reader.name() == QLatin1String("translation")) {
            const bool isFinished = !reader.attributes().hasAttribute("type");
            all.insert(source, {reader.readElementText(), isFinished});
        }
    }
    if (reader.hasError()) {
        qFatal("%s: %s", file, qPrintable(reader.errorString()));
    }
    return all;
}

QStringList placeholders(const QString& text)
{
    static const QRegularExpression number("%L?[0-9n]+");
    QStringList found;
    for (auto it = number.globalMatch(text); it.hasNext();) {
        found.append(it.next().captured());
    }
    found.sort();
    return found;
}

QStringList itemsOf(const QAbstractItemModel* model)
{
    QStringList items;
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            items.append(model->index(row, column).data().toString());
        }
    }
    for (int column = 0; column < model->columnCount(); ++column) {
        items.append(model->headerData(column, Qt::Horizontal).toString());
    }
    return items;
}

/// Everything that the widget itself shows or would show.
QStringList textsOf(const QWidget* widget)
{
    constexpr const char* kShown[] = {"text",   "title",  "windowTitle", "toolTip",  "placeholderText",
                                      "prefix", "suffix", "statusTip",   "whatsThis"};
    QStringList texts;
    for (const char* name : kShown) {
        texts.append(widget->property(name).toString());
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        // The words of an instruction stay as the robot reads them.
        texts += combo->objectName() == "cbxRampType" ? QStringList() : itemsOf(combo->model());
    } else if (const auto* table = qobject_cast<const QTableWidget*>(widget)) {
        texts += itemsOf(table->model());
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab) {
            texts.append(tabs->tabText(tab));
        }
    }
    return texts;
}

QStringList textsBelow(QWidget* root)
{
    QStringList texts = textsOf(root);
    const QList<QWidget*> widgets = root->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        texts += textsOf(widget);
    }
    return texts;
}

} // namespace

class TestTranslation : public QObject
{
    Q_OBJECT

private slots:
    void coversTheSources();
    void isComplete();
    void leavesNoEnglish();

private:
    QStringList englishShown() const;

    const QMap<Source, Translation> m_chinese = readTranslations(CORVANE_TRANSLATION);
};

/// After an update from the sources nothing is new and nothing gone.
void TestTranslation::coversTheSources()
{
    const QList<Source> updated = readTranslations(CORVANE_UPDATED_TRANSLATION).keys();
    const QList<Source> translated = m_chinese.keys();
    int differences = 0;
    const auto report = [&](const char* what, const QList<Source>& these, const QList<Source>& others) {
        for (const Source& source : these) {
            if (!others.contains(source)) {
                qWarning("%s: %s: %s", what, qPrintable(source.first), qPrintable(source.second));
                ++differences;
            }
        }
    };
    QVERIFY2(updated.size() > 100, "the sources were not read");
    report("not translated", updated, translated);
    report("no longer used", translated, updated);
    QCOMPARE(differences, 0);
}

void TestTranslation::isComplete()
{
    for (auto it = m_chinese.cbegin(); it != m_chinese.cend(); ++it) {
        const QString& text = it.value().text;
        QVERIFY2(it.value().isFinished && !text.trimmed().isEmpty(), qPrintable(it.key().second));
        QCOMPARE(placeholders(text), placeholders(it.key().second));
    }
}

/// Builds the whole package as a host does and lists the English texts of it that have another Chinese one.
QStringList TestTranslation::englishShown() const
{
    FakeHost host;
    host.io["DO"] = QStringList{"DO1"};
    RlRegistry::instance().clear();
    pendix::Corvane plugin(nullptr);
    plugin.init();
    plugin.afterInit();
    plugin.render();
    const std::unique_ptr<QWidget> page(host.centerWidget);
    const std::unique_ptr<QWidget> statusItem(host.statusBar);
    page->show();
    QStringList shown = textsBelow(page.get()) + textsBelow(statusItem.get());
    shown << plugin.pluginLabel() << RlRegistry::instance().groupTitle("LaserWeld");
    for (const pendix::PhysicalButton& button : host.firstButtons + host.secondButtons) {
        shown.append(button.text);
    }
    ButtonMonitorPage monitor(nullptr);
    shown += textsBelow(&monitor);
    QString registered;
    const QList<pendix::RlInstruction> instructions = RlRegistry::instance().instructions();
    for (const pendix::RlInstruction& one : instructions) {
        registered += one.description + '\n' + one.skeleton + '\n';
        for (const pendix::RLContentFactory& factory : {one.insertFactory, one.propertyFactory}) {
            if (factory) {
                shown += textsBelow(std::unique_ptr<QWidget>(factory()).get());
            }
        }
    }
    QStringList english;
    for (auto it = m_chinese.cbegin(); it != m_chinese.cend(); ++it) {
        const auto& [context, source] = it.key();
        const bool isRegistered = context == "RlLaserWeldDefine" && registered.contains(source);
        if (it.value().text != source && (shown.contains(source) || isRegistered)) {
            english.append(context + ": " + source);
        }
    }
    return english;
}

void TestTranslation::leavesNoEnglish()
{
    const QStringList before = englishShown();
    for (const char* source :
         {"pendix::Corvane: Laser Welding", "pendix::Corvane: Retract Wire", "ButtonMonitorPage: Duty (%)",
          "LaserWeldPage: Char. Curve", "WeldSettingPage: Bus", "pendix::RLLaserOnInsertWidget: Spot weld",
          "SetUpPointWidget: Position(mm): ", "RlLaserWeldDefine: Sched:",
          "RlLaserWeldDefine: Arc welding motion instruction", "RlLaserWeldDefine: Laser Weld Ins"}) {
        QVERIFY2(before.contains(source), source);
    }
    QTranslator translator;
    QVERIFY(translator.load(":/Corvane/language/Corvane_cn.qm"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(englishShown().join('\n'), QString());
}

QTEST_MAIN(TestTranslation)
#include "tst_translation.moc"
