#include "widgets/uiscale_popup.h"

#include "widgets/listcombobox.h"
#include "widgets/uiscale.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QListView>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>

namespace
{

constexpr int kDefaultRows = 10;
constexpr int kTolerance = 5;  // pixels of excess that are not worth a resize
constexpr int kRowPadding = 8; // around the text of a row whose height the view can't tell
constexpr int kMinRowHeight = 20;

int rowLimit(int maxVisible)
{
    return maxVisible < 1 ? kDefaultRows : maxVisible;
}

/// Corrects the popup of a combo box each time its list view is shown. Belongs to that view.
class ComboPopupFixer : public QObject
{
public:
    ComboPopupFixer(QComboBox* combo, int maxVisible, bool below)
        : QObject(combo->view()),
          m_view(combo->view()),
          m_combo(combo),
          m_maxVisible(rowLimit(maxVisible)),
          m_below(below)
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool canAdjust() const { return m_combo != nullptr && m_combo->count() > 0; }
    int listHeight() const;
    void adjust();

    QAbstractItemView* m_view;
    QPointer<QComboBox> m_combo;
    int m_maxVisible;
    bool m_below;
    int m_cutHeight = -1; ///< height that this fixer gave the popup last
};

bool ComboPopupFixer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view && event->type() == QEvent::Show && canAdjust()) {
        adjust();
        // The toolkit places the popup after its view is shown, so this has to be done once more.
        QTimer::singleShot(0, m_combo, [self = QPointer<ComboPopupFixer>(this)] {
            if (self != nullptr && self->canAdjust()) {
                self->adjust();
            }
        });
    }
    return false;
}

int ComboPopupFixer::listHeight() const
{
    int rowHeight = m_view->sizeHintForRow(0);
    if (rowHeight < 1) {
        rowHeight = qMax(UiScale::lineHeight(m_combo->font()) + kRowPadding, kMinRowHeight);
    }
    return 2 * m_view->frameWidth() + qMin(m_combo->count(), m_maxVisible) * rowHeight;
}

void ComboPopupFixer::adjust()
{
    QWidget* popup = m_view->window();
    if (popup == m_combo->window() || !(popup->windowFlags() & (Qt::Window | Qt::Popup))) {
        return;
    }
    const int height = listHeight();
    // A popup that this fixer cut to a shorter list would never grow again by itself.
    const bool isOurCut = popup->minimumHeight() == m_cutHeight && popup->maximumHeight() == m_cutHeight;
    const bool outgrown = isOurCut && m_cutHeight < height;
    if (popup->height() >= height + kTolerance || outgrown) {
        m_view->setMinimumHeight(0);
        m_view->setMaximumHeight(height);
        popup->setFixedHeight(height);
        m_cutHeight = height;
    }
    if (m_below) {
        popup->move(m_combo->mapToGlobal(QPoint(0, m_combo->height())));
    }
}

void installComboPopupFixer(QComboBox* combo, int maxVisible, bool below)
{
    if (combo == nullptr) {
        return;
    }
    const char* marker = below ? "comboPopupFixerBelow" : "comboPopupFixerHeight";
    if (combo->property(marker).toBool() || combo->view() == nullptr) {
        return;
    }
    combo->view()->installEventFilter(new ComboPopupFixer(combo, maxVisible, below));
    combo->setProperty(marker, true);
}

} // namespace

namespace UiScale
{

void configureComboBoxPopup(QComboBox* combo, int maxVisible)
{
    if (combo == nullptr) {
        return;
    }
    combo->setMaxVisibleItems(rowLimit(maxVisible));
    // Asking for the view makes it; a list combo box does that when it opens.
    if (qobject_cast<ListComboBox*>(combo) == nullptr) {
        configurePopupList(combo->view());
    }
}

void configurePopupList(QAbstractItemView* list)
{
    if (auto* plain = qobject_cast<QListView*>(list)) {
        plain->setUniformItemSizes(true);
        plain->setSpacing(0);
    }
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void configureDetailComboBoxPopup(QComboBox* combo, const QWidget* /*w*/)
{
    configureComboBoxPopup(combo, kDefaultRows);
}

void adjustIoPageComboBoxPopup(QComboBox* combo, int maxVisible)
{
    configureComboBoxPopup(combo, maxVisible);
}

void installIoPageComboBoxPopupFilter(QComboBox* combo, int maxVisible)
{
    configureComboBoxPopup(combo, maxVisible);
}

void forceComboBoxPopupBelow(QComboBox* combo, int maxVisible)
{
    installComboPopupFixer(combo, maxVisible, true);
}

void limitComboBoxPopupHeight(QComboBox* combo, int maxVisible)
{
    installComboPopupFixer(combo, maxVisible, false);
}

} // namespace UiScale
