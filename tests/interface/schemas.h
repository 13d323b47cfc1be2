#ifndef TESTS_INTERFACE_SCHEMAS_H
#define TESTS_INTERFACE_SCHEMAS_H

#include "tests/interface/nodeforms.h"

#include <QJsonObject>
#include <QMap>

/// JSON Schemas (draft 7) by what they describe: every node that is read, the argument of every command, and
/// "result", the array that answers a command. The name is the file's, without ".schema.json".
QMap<QString, QJsonObject> interfaceSchemas(const QVector<NodeForm>& forms);

#endif
