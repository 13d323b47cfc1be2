#ifndef DOCS_GENERATOR_GUIDE_H
#define DOCS_GENERATOR_GUIDE_H

#include "docs/generator/nodeforms.h"

#include <QMap>
#include <QString>

/// The tables of the integrator's guide in Markdown, by the name of their section: "values", "commands", "answers",
/// "monitor", and every configuration node under its own name.
QMap<QString, QString> guideSections(const QVector<NodeForm>& forms);

/// The text with each section between <!-- generated: NAME --> and <!-- end --> replaced. A section that the text
/// lacks, or that nobody knows, is described in fault.
QString withSections(const QString& text, const QMap<QString, QString>& sections, QString* fault);

#endif
