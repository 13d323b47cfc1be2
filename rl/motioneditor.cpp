#include "rl/motioneditor.h"

#include "common/controller.h"
#include "common/logline.h"
#include "common/operatormessage.h"
#include "rl/fillguard.h"
#include "rl/instructionnumber.h"
#include "rl/instructiontext.h"
#include "rl/setuppointwidget.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr char kNoSpeed[] = "NULL";
constexpr char kDefaultWobj[] = "wobj0";
constexpr double kLowestRunDeg = -359;
constexpr double kHighestRunDeg = 3600;
constexpr double kFullCircle = 360;
constexpr int kRunDegDecimals = 4;
/// Speed, zone and tool must follow the points; the work object may.
constexpr int kRequiredNames = 3;
constexpr int kCircleNumbers = 2;
/// In characters: what a list needs at least. It takes all the room there is.
constexpr int kListLength = 14;

/// Selects the item of that text, case-sensitive. False, with nothing changed, when there is none.
bool select(QComboBox* box, const QString& text)
{
    const int found = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found >= 0) {
        box->setCurrentIndex(found);
    }
    return found >= 0;
}

void selectOrFirst(QComboBox* box, const QString& text)
{
    if (!select(box, text)) {
        box->setCurrentIndex(0);
    }
}

} // namespace

MotionEditor::MotionEditor(const MotionSpec& spec, Role role, const MotionCaptions& captions, QWidget* parent)
    : RLContentBase(parent), m_spec(spec), m_role(role)
{
    createForm(captions);
    initUI(captions);
}

MotionEditor::~MotionEditor() = default;

void MotionEditor::createForm(const MotionCaptions& captions)
{
    setWindowTitle(QStringLiteral("Form"));
    auto* layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("verticalLayout"));
    for (const char* name : {m_spec.firstPoint, m_spec.secondPoint}) {
        if (name != nullptr) {
            m_points.append(new SetUpPointWidget(m_points.size() + 1, this));
            m_points.last()->setObjectName(QLatin1String(name));
            layout->addWidget(m_points.last());
        }
    }
    m_fields = new QGridLayout;
    m_fields->setObjectName(QStringLiteral("gridLayout_2"));
    m_fields->setColumnStretch(1, 1);
    m_fields->setColumnStretch(3, 1);
    layout->addLayout(m_fields);
    layout->addStretch(1);
    m_tool = createList();
    addField(m_tool, "cbxTool", "label", captions.tool, {0, 0, 1});
    m_wobj = createList();
    addField(m_wobj, "cbxWobj", "label_4", captions.wobj, {0, 2, 1});
    m_speed = createList();
    addField(m_speed, "cbxSpeed", "label_2", captions.speed, {1, 0, 1});
    m_zone = createList();
    addField(m_zone, "cbxZone", "label_5", captions.zone, {1, 2, 1});
    if (m_spec.isCircle) {
        // Their captions are long: in the columns above they would leave the lists no room.
        m_rotType = createList();
        addField(m_rotType, "cbxRotType", "label_3", captions.rotType, {2, 0, 2});
        m_runDeg = new QDoubleSpinBox(this);
        m_runDeg->setDecimals(kRunDegDecimals);
        m_runDeg->setRange(kLowestRunDeg, kHighestRunDeg);
        m_runDeg->setValue(kFullCircle);
        addField(m_runDeg, "sbxRunDeg", "label_6", captions.runDeg, {3, 0, 2});
    }
}

QComboBox* MotionEditor::createList()
{
    auto* box = new QComboBox(this);
    // By its content a list would measure every name of the controller.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kListLength);
    return box;
}

void MotionEditor::addField(QWidget* field, const char* name, const char* labelName, const QString& caption,
                            const Place& place)
{
    field->setObjectName(QLatin1String(name));
    auto* label = new QLabel(caption, this);
    label->setObjectName(QLatin1String(labelName));
    m_fields->addWidget(label, place.row, place.column, 1, place.width);
    m_fields->addWidget(field, place.row, place.column + place.width, 1, place.width);
}

void MotionEditor::initUI(const MotionCaptions& captions)
{
    for (int i = 0; i < m_points.size(); ++i) {
        m_points.at(i)->setPointName(captions.points.value(i));
    }
    m_speed->addItems(controller::speedNames());
    m_speed->insertItem(0, QLatin1String(kNoSpeed));
    m_speed->setCurrentIndex(0);
    m_zone->addItems(controller::zoneNames());
    m_zone->setCurrentIndex(0);
    m_tool->addItems(controller::toolNames());
    selectOrFirst(m_tool, controller::currentTool());
    m_wobj->addItems(controller::wobjNames());
    selectOrFirst(m_wobj, controller::currentWobj());
    if (m_spec.isCircle) {
        m_rotType->addItems({QStringLiteral("RotAxis"), QStringLiteral("ConstPose"), QStringLiteral("FixedAxis")});
    }
}

bool MotionEditor::event(QEvent* event)
{
    // Also when the texts have become larger or smaller.
    if (event->type() == QEvent::LayoutRequest) {
        alignPoints();
    }
    return RLContentBase::event(event);
}

void MotionEditor::alignPoints()
{
    int widest = 0;
    for (const SetUpPointWidget* point : qAsConst(m_points)) {
        widest = qMax(widest, point->captionWidth());
    }
    for (SetUpPointWidget* point : qAsConst(m_points)) {
        point->setCaptionRoom(widest);
    }
}

QString MotionEditor::line() const
{
    QStringList arguments;
    for (const SetUpPointWidget* point : m_points) {
        arguments.append(point->getResult());
    }
    if (m_spec.isCircle) {
        arguments << instructionNumber(m_runDeg->value()) << quoted(m_rotType->currentText());
    }
    arguments << m_speed->currentText() << m_zone->currentText() << m_tool->currentText() << m_wobj->currentText();
    return QStringLiteral("%1(%2);").arg(QLatin1String(m_spec.instruction), arguments.join(QStringLiteral(", ")));
}

QString MotionEditor::ToString()
{
    // Before the points: storing them makes the lists propose other names.
    QString text = line();
    if (m_role == Role::Insert) {
        storeNewPoints();
    }
    return text;
}

void MotionEditor::storeNewPoints()
{
    const auto turn = m_business.begin();
    if (!turn) {
        return;
    }
    // The line's names, before the host is asked: meanwhile they may be typed over.
    const QVector<SetUpPointWidget*> points = m_points;
    QStringList names;
    for (const SetUpPointWidget* point : points) {
        names.append(point->newPointName());
    }
    if (!operatorMayChange()) {
        return;
    }
    const QString tool = turn->ownerLives() ? controller::currentTool() : QString();
    const QString wobj = turn->ownerLives() ? controller::currentWobj() : QString();
    for (int i = 0; i < points.size() && turn->ownerLives(); ++i) {
        points.at(i)->storePoint(names.at(i), tool, wobj);
    }
    // Not before all are stored: a refreshed list has lost the name that was typed into it.
    for (int i = 0; i < points.size() && turn->ownerLives(); ++i) {
        points.at(i)->refreshPointList();
    }
}

void MotionEditor::FillWith(const QString& line)
{
    if (m_role == Role::Insert) {
        return;
    }
    guardFill(" Caught an unknown exception!", [&] {
        QString function;
        QStringList parameters;
        if (!corvane::util::extractFunctionAndParameters(line, function, parameters)) {
            return;
        }
        const int required = m_points.size() + (m_spec.isCircle ? kCircleNumbers : 0) + kRequiredNames;
        if (parameters.size() < required) {
            logLine(LogLevel::Warning) << " Missing required parameters! params:" << parameters;
            return;
        }
        readParameters(parameters);
    });
}

void MotionEditor::readParameters(const QStringList& parameters)
{
    auto next = parameters.cbegin();
    for (SetUpPointWidget* point : qAsConst(m_points)) {
        point->setPointText(*next++);
    }
    if (m_spec.isCircle) {
        m_runDeg->setValue(instructionNumber(*next++));
        const QString quote = QStringLiteral("\"");
        m_rotType->setCurrentText(corvane::util::removePrefixAndSuffix(*next++, quote, quote));
    }
    m_speed->setCurrentText(*next++);
    m_zone->setCurrentText(*next++);
    m_tool->setCurrentText(*next++);
    selectOrFirst(m_wobj, QLatin1String(kDefaultWobj));
    if (next != parameters.cend()) {
        select(m_wobj, next->trimmed());
    }
}

bool MotionEditor::mayBeWritten() const
{
    // First the host, which may let the operator type on: what counts is the text that ToString finds.
    const Business::Watch watch = m_business.watch();
    return operatorMayChange() && watch.ownerLives() &&
           std::all_of(m_points.begin(), m_points.end(), [](const SetUpPointWidget* p) { return p->isWritable(); });
}

bool MotionEditor::CheckInsert()
{
    return m_role == Role::Insert ? mayBeWritten() : RLContentBase::CheckInsert();
}

bool MotionEditor::CheckReplace()
{
    return m_role == Role::Property ? mayBeWritten() : RLContentBase::CheckReplace();
}
