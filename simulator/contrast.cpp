#include "simulator/contrast.h"

#include <QMap>

#include <algorithm>
#include <cmath>

namespace sim
{

namespace
{

/// The brightness of a colour as the eye takes it, from 0 to 1.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    constexpr double kStrayLight = 0.05;
    const double first = luminance(one) + kStrayLight;
    const double second = luminance(other) + kStrayLight;
    return std::max(first, second) / std::min(first, second);
}

QColor mostFrequentColor(const QImage& picture)
{
    QMap<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    const auto most = std::max_element(counts.cbegin(), counts.cend());
    return most != counts.cend() ? QColor(most.key()) : QColor();
}

} // namespace sim
