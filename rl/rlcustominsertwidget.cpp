#include "rl/rlcustominsertwidget.h"

#include "rl/customline.h"
#include "ui_rlcustominsertwidget.h"

namespace pendix
{

RLCustomInsertWidget::RLCustomInsertWidget(const QString& name, QWidget* parent)
    : RLContentBase(parent), m_name(name), ui(std::make_unique<::Ui::RLCustomInsertWidget>())
{
    ui->setupUi(this);
}

RLCustomInsertWidget::~RLCustomInsertWidget() = default;

void RLCustomInsertWidget::FillWith(const QString& line)
{
    logCustomFill(m_name, line);
}

QString RLCustomInsertWidget::ToString()
{
    return customLine(m_name, ui->line1->text(), ui->line2->text());
}

bool RLCustomInsertWidget::CheckInsert()
{
    return true;
}

} // namespace pendix
