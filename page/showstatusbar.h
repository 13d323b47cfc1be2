#ifndef PAGE_SHOWSTATUSBAR_H
#define PAGE_SHOWSTATUSBAR_H

#include <QWidget>

#include <memory>

namespace Ui
{
class ShowStatusBar;
}

/// The status bar item: shows as a picture whether the controller welds for real or only simulates it.
/// It shows what it was told last and asks nobody.
class ShowStatusBar : public QWidget
{
    Q_OBJECT

public:
    explicit ShowStatusBar(QWidget* parent);
    ~ShowStatusBar() override;

    void SetVirtualWelding();
    void SetRealWelding();

    /// Shows a text, also an empty one, instead of the picture.
    void updateText(const QString& text);

private:
    void showPicture(const QString& path);

    std::unique_ptr<Ui::ShowStatusBar> ui;
};

#endif
