#ifndef COMMON_PARAMETERSETNAMES_H
#define COMMON_PARAMETERSETNAMES_H

#include <QStringList>

/// Names of the controller's welding parameter sets, "LsData1" to "LsData30", in numeric order. They are not
/// translated: they stand in weld programs.
QStringList parameterSetNames();

#endif
