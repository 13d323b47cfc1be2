#ifndef DOCS_GENERATOR_CURVEFORM_H
#define DOCS_GENERATOR_CURVEFORM_H

#include "docs/generator/nodeforms.h"

class QWidget;

/// The node of the characteristic curves and the commands that compute and save one of them. Ends the process with the
/// name of a widget that the page does not have.
NodeForm curveNode(const QWidget& page);

#endif
