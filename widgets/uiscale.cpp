#include "widgets/uiscale.h"

#include "common/controller.h"
#include "common/names.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QSpinBox>
#include <QWindow>

#include <limits>

namespace UiScale
{

namespace
{

constexpr double kReferenceDpi = 96.0;
constexpr double kMinScale = 0.75; // for the density and for the host's font zoom
constexpr double kMaxScale = 3.0;
constexpr double kDamping = 0.5;
constexpr double kRatioTolerance = 0.001;

const QScreen* screenOf(const QWidget* w)
{
    for (; w != nullptr; w = w->parentWidget()) {
        const QWindow* window = w->windowHandle();
        if (window != nullptr && window->screen() != nullptr) {
            return window->screen();
        }
    }
    return QGuiApplication::primaryScreen();
}

double dpiScale(const QWidget* w)
{
    return qBound(kMinScale, screenDpi(w) / kReferenceDpi, kMaxScale);
}

double damped(double scale)
{
    return scale <= 1.0 ? scale : 1.0 + (scale - 1.0) * kDamping;
}

double hostFontZoom()
{
    const double zoom = controller::hostSetting(QString::fromLatin1(names::setting::kFontZoom)).toDouble(1.0);
    return zoom >= kMinScale && zoom <= kMaxScale ? zoom : 1.0;
}

/// Rounds to a size of at least 1. Bounded first: a style sheet may hold any number of digits.
int toSize(double value)
{
    return qRound(qBound(1.0, value, static_cast<double>(std::numeric_limits<int>::max())));
}

/// Replaces the number that each match captures by its damped value.
QString dampNumbers(const QString& sheet, const QRegularExpression& expression, double ratio)
{
    QString result;
    int copied = 0;
    QRegularExpressionMatchIterator matches = expression.globalMatch(sheet);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result += sheet.midRef(copied, match.capturedStart(1) - copied);
        result += QString::number(toSize(match.captured(1).toDouble() * ratio));
        copied = match.capturedEnd(1);
    }
    return result + sheet.midRef(copied);
}

} // namespace

double screenDpi(const QWidget* w)
{
    const QScreen* screen = screenOf(w);
    return screen != nullptr ? screen->logicalDotsPerInchX() : kReferenceDpi;
}

double contentScaleRatio(const QWidget* w)
{
    const double scale = dpiScale(w);
    return damped(scale) / scale;
}

double fontFactor(const QWidget* w)
{
    return damped(dpiScale(w)) * hostFontZoom();
}

double factor(const QWidget* w)
{
    return fontFactor(w);
}

double layoutFactor(const QWidget* /*w*/)
{
    return 1.0;
}

int px(int value, const QWidget* /*w*/)
{
    return qMax(value, 1);
}

int pxLayout(int value, const QWidget* w)
{
    return px(value, w);
}

int pxFont(int value, const QWidget* w)
{
    return toSize(value * fontFactor(w));
}

int adjustedPointSize(int points, const QWidget* w)
{
    return points < 1 ? points : toSize(points * contentScaleRatio(w));
}

QFont contentFont(const QWidget* w, int points)
{
    // A copy on the heap: Qt's font cache keeps the family beyond the life of this library, where a string
    // literal of ours would be gone.
    return QFont(QString::fromLatin1("Microsoft YaHei UI"), adjustedPointSize(points, w));
}

int lineHeight(const QFont& font)
{
    return QFontMetrics(font).height();
}

int tableRowHeight(const QWidget* w)
{
    return pxFont(35, w);
}

int formRowHeight(const QWidget* w)
{
    return qMax(lineHeight(contentFont(w, 10)) + pxLayout(8, w), pxFont(28, w));
}

int detailFormRowHeight(const QWidget* w)
{
    return qBound(20, lineHeight(contentFont(w, 9)) + 2, pxLayout(26, w));
}

int comboMinWidthForItems(const QComboBox* combo, const QWidget* w)
{
    if (combo == nullptr) {
        return pxLayout(80, w);
    }
    const bool sized = combo->font().pointSizeF() > 0 || combo->font().pixelSize() > 0;
    const QFontMetrics metrics(sized ? combo->font() : contentFont(w, 10));
    int widest = 0;
    for (int i = 0; i < combo->count(); ++i) {
        widest = qMax(widest, metrics.horizontalAdvance(combo->itemText(i)));
    }
    if (widest == 0) {
        widest = metrics.horizontalAdvance(combo->currentText());
    }
    return widest + qMax(px(14, w), 12) + 2 + pxLayout(8, w);
}

QString scaleStylesheet(const QString& sheet, const QWidget* w)
{
    const double ratio = contentScaleRatio(w);
    if (sheet.isEmpty() || qAbs(ratio - 1.0) < kRatioTolerance) {
        return sheet;
    }
    static const QRegularExpression pointSize(QStringLiteral("(\\d+)pt"));
    static const QRegularExpression pixelFontSize(QStringLiteral("font-size\\s*:\\s*(\\d+)px"),
                                                  QRegularExpression::CaseInsensitiveOption);
    return dampNumbers(dampNumbers(sheet, pointSize, ratio), pixelFontSize, ratio);
}

void applyExpandingPage(QWidget* page)
{
    if (page != nullptr) {
        page->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
}

void applyContentFonts(QWidget* root, int points)
{
    if (root == nullptr || points < 1) {
        return;
    }
    const QFont font = contentFont(root, points);
    // Not operator!=: a sheet leaves its own traces in a font that looks the same.
    const auto looksLike = [&font](const QFont& other) {
        return other.family() == font.family() && other.pointSize() == font.pointSize() &&
               other.weight() == font.weight() && other.style() == font.style();
    };
    const auto apply = [&](const auto& widgets) {
        for (QWidget* widget : widgets) {
            if (!looksLike(widget->font())) {
                widget->setFont(font);
            }
        }
    };
    apply(root->findChildren<QSpinBox*>());
    apply(root->findChildren<QDoubleSpinBox*>());
    apply(root->findChildren<QComboBox*>());
}

} // namespace UiScale
