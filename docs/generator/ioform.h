#ifndef DOCS_GENERATOR_IOFORM_H
#define DOCS_GENERATOR_IOFORM_H

#include "docs/generator/nodeforms.h"

class QWidget;

/// The members of the I/O mapping, which the page makes from its tables of signals. Ends the process with the name of
/// a widget that the page does not have.
QVector<NodeMember> ioMembers(const QWidget& page);

#endif
