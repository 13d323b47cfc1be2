#include "simulator/layoutcheck.h"

#include "simulator/contrast.h"
#include "simulator/textroom.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMap>
#include <QPixmap>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QTabBar>
#include <QTableView>

#include <algorithm>

namespace sim
{

namespace
{

using Kind = LayoutFault::Kind;

constexpr int kLongText = 40;

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::LayoutCheck", text);
}

bool inheritsOneOf(const QWidget* widget, std::initializer_list<const char*> classes)
{
    return std::any_of(classes.begin(), classes.end(), [widget](const char* name) { return widget->inherits(name); });
}

QString nameOf(const QWidget* widget)
{
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

/// Of a class that is not Qt's own and paints its content itself.
bool isSelfMade(const QWidget* widget)
{
    return !QByteArray(widget->metaObject()->className()).startsWith('Q') && widget->children().isEmpty();
}

bool isControl(const QWidget* widget)
{
    return inheritsOneOf(widget, {"QAbstractButton", "QComboBox", "QAbstractSpinBox", "QLineEdit", "QSlider", "QDial",
                                  "EnableButton"}) ||
           (isSelfMade(widget) && (widget->focusPolicy() & Qt::ClickFocus) != 0);
}

/// Made by the widget around it, which answers for it.
bool isPart(const QWidget* widget)
{
    const QWidget* parent = widget->parentWidget();
    return inheritsOneOf(parent, {"QAbstractSpinBox", "QComboBox", "QLineEdit", "QTabBar"}) ||
           inheritsOneOf(widget, {"QScrollBar", "QTableCornerButton"});
}

const QAbstractScrollArea* areaOfViewport(const QWidget* widget)
{
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget->parentWidget());
    return area != nullptr && area->viewport() == widget ? area : nullptr;
}

class Check
{
public:
    explicit Check(QWidget* root) : m_root(root), m_picture(root->grab().toImage()) {}

    QVector<LayoutFault> run()
    {
        QVector<const QWidget*> shown{m_root};
        for (const QWidget* widget : m_root->findChildren<const QWidget*>()) {
            if (widget->isVisibleTo(m_root) && widget->window() == m_root->window() && !isPart(widget)) {
                shown.append(widget);
            }
        }
        QVector<const QWidget*> solid;
        for (const QWidget* widget : qAsConst(shown)) {
            const bool hasText = checkTexts(widget);
            if (hasText || isControl(widget) || isSelfMade(widget) || widget->inherits("QAbstractScrollArea")) {
                checkPlace(widget);
                solid.append(widget);
            }
            checkTargets(widget);
            checkContrast(widget);
            checkReach(widget);
        }
        checkOverlaps(solid);
        checkColumns(solid);
        return m_faults;
    }

private:
    QString pathOf(const QWidget* widget) const
    {
        QStringList path{nameOf(widget)};
        for (const QWidget* parent = widget; parent != m_root;) {
            parent = parent->parentWidget();
            if (!parent->objectName().isEmpty() && !parent->objectName().startsWith(QLatin1String("qt_"))) {
                path.prepend(parent->objectName());
            }
        }
        return path.join(QLatin1Char('/'));
    }

    void add(Kind kind, const QWidget* widget, const QString& text, const QString& finding)
    {
        QString quoted;
        if (!text.isEmpty()) {
            quoted = QStringLiteral(" \"%1\"").arg(text.left(kLongText).replace(QLatin1Char('\n'), QLatin1Char(' ')));
        }
        m_faults.append(
            {kind, nameOf(widget),
             QStringLiteral("%1 (%2)%3: %4")
                 .arg(pathOf(widget), QString::fromLatin1(widget->metaObject()->className()), quoted, finding)});
    }

    /// Reports the texts that are cut. Returns whether there are texts at all.
    bool checkTexts(const QWidget* widget)
    {
        const QVector<TextRoom> rooms = textRooms(widget);
        for (const TextRoom& room : rooms) {
            if (!room.isEnough()) {
                add(Kind::CutText, widget, room.text,
                    tr("needs %1 x %2 pixels and has %3 x %4")
                        .arg(room.needed.width())
                        .arg(room.needed.height())
                        .arg(room.room.width())
                        .arg(room.room.height()));
            }
        }
        return !rooms.isEmpty();
    }

    /// Follows the widget's place through what it lies in, up to something that scrolls.
    void checkPlace(const QWidget* widget)
    {
        QRect place = widget->rect();
        for (const QWidget* inner = widget; inner != m_root; inner = inner->parentWidget()) {
            place.translate(inner->pos());
            const QWidget* outer = inner->parentWidget();
            if (const QAbstractScrollArea* area = areaOfViewport(outer)) {
                checkScrolled(area, inner);
                return;
            }
            if (!outer->rect().contains(place)) {
                const QRect rest = place.intersected(outer->rect());
                add(Kind::Outside, widget, {},
                    tr("%1 x %2 of its %3 x %4 pixels are inside %5")
                        .arg(rest.width())
                        .arg(rest.height())
                        .arg(place.width())
                        .arg(place.height())
                        .arg(nameOf(outer)));
                return;
            }
        }
    }

    /// Up and down is how pages are read. Once for each area, whatever lies in it.
    void checkScrolled(const QAbstractScrollArea* area, const QWidget* content)
    {
        const bool isPage = area->inherits("QScrollArea");
        if (!isPage || m_scrolled.contains(area)) {
            return;
        }
        m_scrolled.insert(area);
        const QSize room = area->viewport()->size();
        if (content->width() > room.width()) {
            add(Kind::SidewaysScroll, area, {},
                tr("needs sideways scrolling: %1 pixels in %2").arg(content->width()).arg(room.width()));
        }
        if (content->height() > room.height() && area->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff) {
            add(Kind::Outside, area, {},
                tr("shows %1 of %2 pixels and does not scroll").arg(room.height()).arg(content->height()));
        }
    }

    /// Columns or rows that lie beyond a table's edge and can't be scrolled to.
    void checkReach(const QWidget* widget)
    {
        const auto* table = qobject_cast<const QTableView*>(widget);
        if (table == nullptr) {
            return;
        }
        const auto check = [this, table](int length, int room, Qt::ScrollBarPolicy policy) {
            if (length > room && policy == Qt::ScrollBarAlwaysOff) {
                add(Kind::Outside, table, {}, tr("shows %1 of %2 pixels and does not scroll").arg(room).arg(length));
            }
        };
        const QSize room = table->viewport()->size();
        check(table->horizontalHeader()->length(), room.width(), table->horizontalScrollBarPolicy());
        check(table->verticalHeader()->length(), room.height(), table->verticalScrollBarPolicy());
    }

    void checkContrast(const QWidget* widget)
    {
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (label == nullptr || label->text().trimmed().isEmpty()) {
            return;
        }
        const QRect place(label->mapTo(m_root, QPoint()), label->size());
        const QColor behind = mostFrequentColor(m_picture.copy(place.intersected(m_picture.rect())));
        const double found = contrast(label->palette().color(label->foregroundRole()), behind);
        if (behind.isValid() && found < kLeastContrast) {
            add(Kind::FaintText, label, label->text(),
                tr("has a contrast of %1 to its background").arg(QString::number(found, 'f', 1)));
        }
    }

    void checkTargets(const QWidget* widget)
    {
        const auto check = [this, widget](const QSize& size, const QString& text) {
            if (qMin(size.width(), size.height()) < kLeastTarget) {
                add(Kind::SmallTarget, widget, text,
                    tr("is %1 x %2 pixels to touch").arg(size.width()).arg(size.height()));
            }
        };
        if (isControl(widget)) {
            check(widget->size(), {});
        }
        if (const auto* bar = qobject_cast<const QTabBar*>(widget)) {
            for (int tab = 0; tab < bar->count(); ++tab) {
                check(bar->tabRect(tab).size(), bar->tabText(tab));
            }
        }
    }

    void checkOverlaps(const QVector<const QWidget*>& solid)
    {
        for (int i = 0; i < solid.size(); ++i) {
            for (int j = i + 1; j < solid.size(); ++j) {
                const QWidget* one = solid.at(i);
                const QWidget* other = solid.at(j);
                const bool areSiblings = one != m_root && one->parentWidget() == other->parentWidget();
                const QRect common = one->geometry().intersected(other->geometry());
                if (areSiblings && !common.isEmpty()) {
                    add(Kind::Overlap, one, {},
                        tr("shares %1 x %2 pixels with %3")
                            .arg(common.width())
                            .arg(common.height())
                            .arg(nameOf(other)));
                }
            }
        }
    }

    /// Of the fields of one parent that begin at one x, each against the lowest.
    void checkColumns(const QVector<const QWidget*>& solid)
    {
        QMap<QPair<const QWidget*, int>, QVector<const QWidget*>> columns;
        for (const QWidget* widget : solid) {
            if (widget != m_root && inheritsOneOf(widget, {"QComboBox", "QAbstractSpinBox", "QLineEdit"})) {
                columns[{widget->parentWidget(), widget->x()}].append(widget);
            }
        }
        for (const QVector<const QWidget*>& column : qAsConst(columns)) {
            const QWidget* lowest = *std::min_element(
                column.begin(), column.end(), [](auto* one, auto* other) { return one->height() < other->height(); });
            for (const QWidget* field : column) {
                if (field->height() > lowest->height() + kUnevenness) {
                    add(Kind::Uneven, field, {},
                        tr("is %1 pixels high, %2 in the same column %3")
                            .arg(QString::number(field->height()), nameOf(lowest), QString::number(lowest->height())));
                }
            }
        }
    }

    QWidget* m_root;
    QImage m_picture;
    QVector<LayoutFault> m_faults;
    QSet<const QWidget*> m_scrolled;
};

} // namespace

QVector<LayoutFault> layoutFaults(QWidget* root)
{
    return Check(root).run();
}

} // namespace sim
