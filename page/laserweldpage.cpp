#include "page/laserweldpage.h"
#include "ui_laserweldpage.h"

#include "common/logline.h"
#include "page/characteristicscurvepage.h"
#include "page/lasertrackingpage.h"
#include "page/weldiopage.h"
#include "page/weldparameterpage.h"
#include "page/weldsettingpage.h"
#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"
#include "widgets/wholescrollbar.h"

#include <QFile>
#include <QShowEvent>
#include <QToolButton>

#include <algorithm>

namespace
{

constexpr int kButtonHeight = 42;
constexpr QSize kIconSize(24, 24); // the size the pictures are drawn for

constexpr char kNavigationSheet[] =
    "QToolButton {height: 30px;padding: 0px 6px;background-color: rgb(235, 235, 235);border: none;"
    "border-radius: 3px;font: 17px;color: black;}"
    "QToolButton:hover {background: rgb(99, 99, 99);background-color: rgb(135, 161, 174);}"
    "QToolButton:pressed {background: #636363;}"
    "QToolButton:checked {background: #8a0121;color: white;}";

constexpr char kScrollBarSheet[] =
    "QScrollBar:vertical,QScrollBar:horizontal{background:#f5f5f5;border:1px solid #c8c8c8;border-radius:6px;"
    "margin:0px;min-width:30px;min-height:8px;}"
    "QScrollBar::handle:vertical,QScrollBar::handle:horizontal{background:#c8c8c8;border-radius:10px;"
    "min-width:30px;min-height:8px;}"
    "QScrollBar::handle:vertical:hover,QScrollBar::handle:horizontal:hover{background:#b0b0b0;}"
    "QScrollBar::add-line,QScrollBar::sub-line{border:none;background:none;width:0px;height:0px;}";

void setScaledSheet(QWidget* widget, const char* sheet)
{
    setStyleSheetOnce(widget, UiScale::scaleStylesheet(QString::fromLatin1(sheet), widget));
}

} // namespace

LaserWeldPage::LaserWeldPage(QWidget* parent) : QWidget(parent), ui(new Ui_LaserWeldPage)
{
    logLine(LogLevel::Information) << "LaserWeldPage" << __LINE__;
    ui->setupUi(this);
    // Before there are pages: a sheet restyles every widget below it.
    applyOwnStyle();
    prepareContent();
    createPages();
    connect(ui->stackedWidget, &StackedWidgetFit::currentChanged, this, [this](int index) {
        if (index == trackingIndex && trackingPage != nullptr) {
            const Business::Watch watch = m_business.watch();
            trackingPage->initStyle();
            if (watch.ownerLives()) {
                fitCurrentPage();
            }
        }
    });
    fitCurrentPage();
}

LaserWeldPage::~LaserWeldPage()
{
    delete ui;
}

void LaserWeldPage::prepareContent()
{
    ui->verticalLayout_4->setAlignment(Qt::AlignTop);
    ui->verticalLayout_4->setSpacing(0);
    ui->verticalLayout_4->setContentsMargins(0, 0, 0, 0);
    UiScale::applyExpandingPage(ui->scrollAreaWidgetContents);
    UiScale::applyExpandingPage(ui->wgtContent);
    ui->verticalLayout->setStretch(0, 1);
    ui->scrollArea->setVerticalScrollBar(new WholeScrollBar);
    ui->scrollArea->setHorizontalScrollBar(new WholeScrollBar);
    connect(ui->stackedWidget, &StackedWidgetFit::currentChanged, this, &LaserWeldPage::fitCurrentPage);
}

void LaserWeldPage::fitCurrentPage()
{
    // The stack claims no width of its own; without this a narrow screen would cut the page's texts off
    // instead of scrolling.
    const QWidget* current = ui->stackedWidget->currentWidget();
    ui->stackedWidget->setMinimumWidth(current != nullptr ? std::max(0, current->minimumSizeHint().width()) : 0);
    ui->stackedWidget->refreshCurrentPageLayout();
}

void LaserWeldPage::createPages()
{
    settingPage = new WeldSettingPage(ui->stackedWidget);
    ioPage = new WeldioPage(settingPage, ui->stackedWidget);
    curvePage = new CharacteristicsCurvePage(settingPage, ui->stackedWidget);
    paramPage = new WeldParameterPage(settingPage, ui->stackedWidget);
    trackingPage = new LaserTrackingPage(ui->stackedWidget);

    const QString icons = QStringLiteral(":/png/meanlist/");
    addPage(tr("Weld Setup"), tr("Parmeter Setting"), settingPage, icons + QLatin1String("LaserWeldDeviceSetting.png"));
    addPage(tr("Weld I/O"), tr("Soldering I/O"), ioPage, icons + QLatin1String("LaserWeldIO.png"));
    addPage(tr("Char. Curve"), tr("Characteristic curves"), curvePage,
            icons + QLatin1String("LaserWeldCharacteristicCurve.png"));
    addPage(tr("Weld Data"), tr("Welding Parameters"), paramPage, icons + QLatin1String("LaserWeldProcessSetting.png"));
    addPage(tr("Laser Tracking"), tr("Laser Tracking"), trackingPage,
            icons + QLatin1String("LaserWeldWeaveFunction.png"));
    trackingIndex = ui->stackedWidget->indexOf(trackingPage);
}

void LaserWeldPage::applyOwnStyle()
{
    if (!m_style.sheetsAreDue(this)) {
        return;
    }
    setScaledSheet(this, kScrollBarSheet);
    setScaledSheet(ui->wgtContent, "QWidget{background-color:white;}");
    setScaledSheet(ui->wgtTitle, "QWidget{background-color:white;}");
    setScaledSheet(ui->lblTitle, "QLabel#lblTitle{font:bold 16px;min-height:30px;}");
}

void LaserWeldPage::addPage(const QString& title, const QString& caption, QWidget* page, const QString& iconPath)
{
    if (page == nullptr) {
        return;
    }
    const int index = ui->stackedWidget->addWidget(page);
    auto* button = new QToolButton;
    button->setText(title);
    button->setCheckable(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setMinimumHeight(kButtonHeight);
    button->setProperty("pageIndex", index);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    if (!iconPath.isEmpty() && QFile::exists(iconPath)) {
        button->setIcon(QIcon(iconPath));
        button->setIconSize(kIconSize);
    }
    setScaledSheet(button, kNavigationSheet);
    ui->verticalLayout_4->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, entry = Entry{button, page, caption}] { openPage(entry); });
}

void LaserWeldPage::openPage(const Entry& entry)
{
    if (ui->stackedWidget->indexOf(entry.page) < 0) {
        // Somebody has taken the sub-page away; the click has marked its button.
        entry.button->setChecked(entry.button == lastButton);
        return;
    }
    m_wanted = entry.page;
    markOpened(entry);
    const auto turn = m_business.begin();
    // A page asks the host while it is shown. The page of a click that comes meanwhile is turned to when that one
    // stands: the stack can't be turned over while it is being turned over.
    while (turn && turn->ownerLives() && ui->stackedWidget->indexOf(m_wanted) >= 0 &&
           ui->stackedWidget->currentWidget() != m_wanted) {
        ui->stackedWidget->setCurrentWidget(m_wanted);
    }
}

void LaserWeldPage::markOpened(const Entry& entry)
{
    lastButton = entry.button;
    ui->lblTitle->setText(entry.caption);
    const QList<QToolButton*> buttons = navigationButtons();
    for (QToolButton* button : buttons) {
        button->setChecked(button == entry.button);
    }
}

QList<QToolButton*> LaserWeldPage::navigationButtons() const
{
    return ui->wgtNav->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
}

void LaserWeldPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (lastButton == nullptr) {
        lastButton = navigationButtons().value(0);
    }
    const Business::Watch watch = m_business.watch();
    if (lastButton != nullptr) {
        lastButton->click();
    }
    if (watch.ownerLives()) {
        fitCurrentPage();
    }
}

void LaserWeldPage::initStyle()
{
    applyOwnStyle();
    settingPage->initStyle();
    ioPage->initStyle();
    curvePage->initStyle();
    paramPage->initStyle();
    const Business::Watch watch = m_business.watch();
    trackingPage->initStyle();
    if (watch.ownerLives()) {
        fitCurrentPage();
    }
}

void LaserWeldPage::setPageStatus(bool enable)
{
    ioPage->setDisabled(enable);
    curvePage->setDisabled(enable);
    paramPage->setDisabled(enable);
    settingPage->setAllPlaneStatus(!enable);
}
