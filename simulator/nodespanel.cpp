#include "simulator/nodespanel.h"

#include "simulator/confignodes.h"
#include "simulator/journal.h"
#include "simulator/pointlist.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QJsonDocument>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace sim
{

namespace
{

constexpr char kCurrent[] = "current tool and work object";

QFont fixedFont(double pointSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    // Some platforms name a family here that is not fixed at all.
    font.setFamily(QFontInfo(font).fixedPitch() ? font.family() : QStringLiteral("monospace"));
    font.setPointSizeF(pointSize);
    return font;
}

QString pretty(const QJsonValue& value)
{
    if (value.isObject()) {
        return QString::fromUtf8(QJsonDocument(value.toObject()).toJson());
    }
    if (value.isArray()) {
        return QString::fromUtf8(QJsonDocument(value.toArray()).toJson());
    }
    return Journal::compact(value);
}

} // namespace

NodesPanel::NodesPanel(SimulatedController* controller, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_choice(new QComboBox(this)), m_text(new QPlainTextEdit(this))
{
    m_choice->addItems(nodeNames());
    m_choice->addItem(QStringLiteral("values"));
    for (const QString& type : controller->cell().io.keys()) {
        m_choice->addItem(type);
    }
    m_choice->addItems({QStringLiteral("registers"), QStringLiteral("points"), QStringLiteral("tools"),
                        QStringLiteral("wobjs"), QLatin1String(kCurrent), QStringLiteral("speeds"),
                        QStringLiteral("zones"), QStringLiteral("host settings")});
    m_choice->setMaxVisibleItems(m_choice->count());
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(fixedFont(font().pointSizeF()));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_choice);
    layout->addWidget(m_text, 1);
    connect(m_choice, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &NodesPanel::refresh);
    connect(controller, &SimulatedController::dataChanged, this, [this] {
        if (isVisible()) {
            refresh();
        }
    });
}

void NodesPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

QJsonValue NodesPanel::content(const QString& name) const
{
    const Cell& cell = m_controller->cell();
    if (nodeNames().contains(name)) {
        return m_controller->nodes().value(name);
    }
    if (cell.io.contains(name)) {
        return QJsonArray::fromStringList(cell.io.value(name));
    }
    const QJsonObject rest = {
        {QStringLiteral("values"), m_controller->values()},
        {QStringLiteral("registers"), m_controller->registers()},
        {QStringLiteral("points"), pointsToJson(m_controller->points())},
        {QStringLiteral("tools"), QJsonArray::fromStringList(cell.tools)},
        {QStringLiteral("wobjs"), QJsonArray::fromStringList(cell.wobjs)},
        {QLatin1String(kCurrent),
         QJsonObject{{QStringLiteral("tool"), cell.currentTool}, {QStringLiteral("wobj"), cell.currentWobj}}},
        {QStringLiteral("speeds"), QJsonArray::fromStringList(cell.speeds)},
        {QStringLiteral("zones"), QJsonArray::fromStringList(cell.zones)},
        {QStringLiteral("host settings"), cell.hostSettings},
    };
    return rest.value(name);
}

void NodesPanel::refresh()
{
    const QString text = pretty(content(m_choice->currentText()));
    if (text != m_text->toPlainText()) {
        // The place in the text stays while its values change under the reader.
        const int place = m_text->verticalScrollBar()->value();
        m_text->setPlainText(text);
        m_text->verticalScrollBar()->setValue(place);
    }
}

} // namespace sim
