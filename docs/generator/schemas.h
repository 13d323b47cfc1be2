#ifndef DOCS_GENERATOR_SCHEMAS_H
#define DOCS_GENERATOR_SCHEMAS_H

#include "docs/generator/nodeforms.h"

#include <QJsonObject>
#include <QMap>

/// JSON Schemas (draft 7) by what they describe: every node that is read, the argument of every command, and
/// "result", the array that answers a command. The name is the file's, without ".schema.json". otherAnswers: schemas of
/// the answers to further commands, by name.
QMap<QString, QJsonObject> interfaceSchemas(const QVector<NodeForm>& forms, const QJsonObject& otherAnswers);

#endif
