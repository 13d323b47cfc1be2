#include "page/showstatusbar.h"
#include "ui_showstatusbar.h"

#include <QPixmap>

namespace
{
constexpr int kPictureHeight = 25;
}

ShowStatusBar::ShowStatusBar(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::ShowStatusBar>())
{
    ui->setupUi(this);
}

ShowStatusBar::~ShowStatusBar() = default;

void ShowStatusBar::SetVirtualWelding()
{
    showPicture(QStringLiteral(":/png/LaserSwitchSimu.png"));
}

void ShowStatusBar::SetRealWelding()
{
    showPicture(QStringLiteral(":/png/LaserSwitchReal.png"));
}

void ShowStatusBar::updateText(const QString& text)
{
    // A label that shows a picture takes an empty text for the one it has.
    ui->label->clear();
    ui->label->setText(text);
}

void ShowStatusBar::showPicture(const QString& path)
{
    ui->label->setPixmap(QPixmap(path).scaledToHeight(kPictureHeight, Qt::SmoothTransformation));
}
