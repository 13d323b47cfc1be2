#ifndef RL_FRESHNAME_H
#define RL_FRESHNAME_H

#include <QString>
#include <QStringList>

/// The prefix with the index-th number, counted from 1, that no name of the list has after the prefix; leading
/// zeros count for nothing (p01 takes 1). The prefix is part of a regular expression and case-sensitive. Empty for
/// an index below 1.
QString freshName(const QStringList& names, const QString& prefix, int index);

#endif
