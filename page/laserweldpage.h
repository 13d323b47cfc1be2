#ifndef PAGE_LASERWELDPAGE_H
#define PAGE_LASERWELDPAGE_H

#include "common/business.h"
#include "widgets/stylekey.h"

#include <QPointer>
#include <QWidget>

class CharacteristicsCurvePage;
class LaserTrackingPage;
class QToolButton;
class WeldParameterPage;
class WeldSettingPage;
class WeldioPage;
class Ui_LaserWeldPage;

/// The package's main page: a column of navigation buttons, and beside it a title above the sub-pages.
/// It remembers the sub-page that the operator left and shows it again.
class LaserWeldPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserWeldPage(QWidget* parent);
    ~LaserWeldPage() override;

    /// Appends a sub-page with a navigation button. title: text of the button; caption: the title line
    /// while the page is shown; iconPath: picture of the button, none if empty or missing. A null page is
    /// ignored.
    void addPage(const QString& title, const QString& caption, QWidget* page, const QString& iconPath);

    /// Applies the page's own style, then each sub-page's.
    void initStyle();

public slots:
    /// Locks (true) or unlocks (false) the configuration sub-pages.
    void setPageStatus(bool enable);

protected:
    /// Opens the sub-page that was open last, the first one at the first time.
    void showEvent(QShowEvent* event) override;

private:
    void prepareContent();
    void createPages();
    void fitCurrentPage();
    void applyOwnStyle();
    /// What a navigation button opens.
    struct Entry {
        QToolButton* button;
        QPointer<QWidget> page;
        QString caption;
    };
    void openPage(const Entry& entry);
    void markOpened(const Entry& entry);
    QList<QToolButton*> navigationButtons() const;

    Ui_LaserWeldPage* ui;
    QToolButton* lastButton = nullptr;
    WeldSettingPage* settingPage = nullptr;
    WeldioPage* ioPage = nullptr;
    CharacteristicsCurvePage* curvePage = nullptr;
    WeldParameterPage* paramPage = nullptr;
    LaserTrackingPage* trackingPage = nullptr;
    int trackingIndex = -1;
    QPointer<QWidget> m_wanted; ///< the sub-page of the last click, while a change is under way
    StyleSteps m_style;
    Business m_business;
};

#endif
