#ifndef SIMULATOR_STYLERULES_H
#define SIMULATOR_STYLERULES_H

#include "simulator/theme/theme.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace sim
{

/// The style rules that a plug-in ships for its pages and editors: a JSON array of objects, each with a Qt style-sheet
/// selector as its "name" and one text per property. The theme resolves the tokens in these texts.
class StyleRules
{
    Q_DECLARE_TR_FUNCTIONS(sim::StyleRules)

public:
    /// Whatever can't be used is left out of the sheet, a rule or a property at a time, and named in faults().
    StyleRules(const QByteArray& json, const Theme& theme);

    /// The rules of ":/<plugin>/render/sub_page.json" in the simulator's theme; no rules when there is no such file.
    static StyleRules ofPlugin(const QString& plugin);

    /// As a widget takes it; empty for no rules.
    const QString& sheet() const { return m_sheet; }
    /// For a person, in the order of the file.
    const QStringList& faults() const { return m_faults; }

private:
    StyleRules() = default;
    void addRule(int number, const QJsonValue& rule, const Theme& theme);
    QString resolved(const QString& place, const QString& text, const Theme& theme);

    QString m_sheet;
    QStringList m_faults;
};

} // namespace sim

#endif
