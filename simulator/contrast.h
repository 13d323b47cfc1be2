#ifndef SIMULATOR_CONTRAST_H
#define SIMULATOR_CONTRAST_H

#include <QColor>
#include <QImage>

namespace sim
{

/// How well one colour can be told from the other, from 1 (not at all) to 21 (black on white), by the formula of the
/// Web's rules for accessibility.
double contrast(const QColor& one, const QColor& other);

/// The colour of most pixels: what is behind a text, whose letters cover less than half of their place. None of an
/// empty picture.
QColor mostFrequentColor(const QImage& picture);

} // namespace sim

#endif
