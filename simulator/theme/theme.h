#ifndef SIMULATOR_THEME_THEME_H
#define SIMULATOR_THEME_THEME_H

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

namespace sim
{

/// This pendant's look: what stands for the tokens in the style rules of plug-ins. A token names a kind ("font",
/// "color", "border", "image") and a role: $color$btn_bkg.
class Theme
{
public:
    /// From a JSON object of kinds, each an object of texts by role; the text of an image is its file. What is no such
    /// text, and an image whose file does not exist, is no role of the theme. Point sizes of fonts are multiplied
    /// by pointRatio and rounded to whole points, at least 1.
    Theme(const QByteArray& json, double pointRatio);

    /// The simulator's own theme on this screen.
    static const Theme& own();

    /// What the token stands for in a style sheet; nothing when the theme does not know it.
    std::optional<QString> value(const QString& token) const;

private:
    QHash<QString, QString> m_values; ///< by token
};

} // namespace sim

#endif
