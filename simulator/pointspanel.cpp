#include "simulator/pointspanel.h"

#include "simulator/pointsmodel.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>

#include <iterator>

namespace sim
{

namespace
{
constexpr int kRowPadding = 6;
constexpr int kLines = 3; ///< X Y Z at the left, A B C at the right
} // namespace

PointsPanel::PointsPanel(SimulatedController* controller, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_table(new QTableView(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(createPosition());
    layout->addWidget(m_table, 1);
    setUpTable();
    connect(controller, &SimulatedController::positionChanged, this, &PointsPanel::showPosition);
    showPosition();
}

QGroupBox* PointsPanel::createPosition()
{
    auto* group = new QGroupBox(tr("Robot position"), this);
    auto* grid = new QGridLayout(group);
    for (int i = 0; i < static_cast<int>(std::size(kCoordinates)); ++i) {
        QDoubleSpinBox* box = createBox(kCoordinates[i]);
        auto* name = new QLabel(QLatin1String(kCoordinates[i].name), group);
        name->setBuddy(box);
        const int column = i / kLines * 2;
        grid->addWidget(name, i % kLines, column);
        grid->addWidget(box, i % kLines, column + 1);
        grid->setColumnStretch(column + 1, 1);
        m_boxes.append(box);
    }
    return group;
}

QDoubleSpinBox* PointsPanel::createBox(const Coordinate& coordinate)
{
    auto* box = new QDoubleSpinBox(this);
    box->setObjectName(QLatin1String("robotPosition") + QLatin1String(coordinate.name));
    box->setDecimals(PointsModel::kDecimals);
    box->setRange(-coordinate.limit, coordinate.limit);
    box->setSuffix(QString::fromUtf8(coordinate.unit));
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), m_controller,
            [this, number = coordinate.value](double value) {
                Pose pose = m_controller->position();
                pose.*number = value;
                m_controller->setPosition(pose);
            });
    return box;
}

void PointsPanel::setUpTable()
{
    m_table->setObjectName(QStringLiteral("pointsTable"));
    auto* model = new PointsModel(m_controller, this);
    m_table->setModel(model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + kRowPadding);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex& /*parent*/, int row) { showPoint(row); });
    connect(model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& cell) { showPoint(cell.row()); });
}

void PointsPanel::showPosition()
{
    const Pose pose = m_controller->position();
    for (int i = 0; i < m_boxes.size(); ++i) {
        QDoubleSpinBox* box = m_boxes.at(i);
        const double number = pose.*kCoordinates[i].value;
        // A box that shows the number stays as it is: somebody may be typing it.
        if (box->textFromValue(number) != box->textFromValue(box->value())) {
            // It rounds what it shows; the robot does not move by that.
            const QSignalBlocker blocker(box);
            box->setValue(number);
        }
    }
}

/// The point that was stored last is in view, also when the panel itself comes into view later.
void PointsPanel::showPoint(int row)
{
    m_table->setCurrentIndex(m_table->model()->index(row, 0));
}

} // namespace sim
