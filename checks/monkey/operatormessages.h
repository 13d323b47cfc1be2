#ifndef CHECKS_MONKEY_OPERATORMESSAGES_H
#define CHECKS_MONKEY_OPERATORMESSAGES_H

#include <QString>
#include <QStringList>

/// What the package may tell the operator: every text with its level. A new one is entered here by hand, which is
/// the moment to read it once more as an operator would.
namespace operatormessages
{

/// The known text, with its place holders, that a shown one is; empty for none of that level.
QString known(int level, const QString& shown);

QStringList all();

} // namespace operatormessages

#endif
