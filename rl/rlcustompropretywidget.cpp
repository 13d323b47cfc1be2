#include "rl/rlcustompropretywidget.h"

#include "rl/customline.h"
#include "ui_rlcustompropretywidget.h"

namespace pendix
{

RLCustomPropretyWidget::RLCustomPropretyWidget(const QString& name, QWidget* parent)
    : RLContentBase(parent), m_name(name), ui(std::make_unique<::Ui::RLCustomPropretyWidget>())
{
    ui->setupUi(this);
}

RLCustomPropretyWidget::~RLCustomPropretyWidget() = default;

void RLCustomPropretyWidget::FillWith(const QString& line)
{
    logCustomFill(m_name, line);
}

QString RLCustomPropretyWidget::ToString()
{
    return customLine(m_name, ui->line1->text(), ui->line2->text());
}

bool RLCustomPropretyWidget::CheckReplace()
{
    return true;
}

} // namespace pendix
