#include "page/io/assignment.h"

#include <QtGlobal>

#include <limits>

int serverTypeOf(const PortKind& kind, int typeIndex)
{
    return typeIndex == kind.registerIndex() ? kRegisterType : typeIndex;
}

int typeIndexOf(const PortKind& kind, int serverType)
{
    if (serverType == kRegisterType) {
        return kind.registerIndex();
    }
    return serverType > 0 && serverType < kind.registerIndex() ? serverType : 0;
}

Assignment storedAssignment(const IoRowTemplate& signal, const QJsonObject& node)
{
    const int type = node.value(signal.typeKey()).toInt();
    const int bias = node.value(signal.biasKey()).toInt();
    return {serverTypeOf(*signal.portKind, typeIndexOf(*signal.portKind, type)),
            node.value(signal.portKey()).toString(), bias < std::numeric_limits<int>::max() ? bias + 1 : bias,
            signal.hasEnableSwitch() && node.value(signal.enabledKey()).toBool()};
}

void store(const IoRowTemplate& signal, const Assignment& assignment, QJsonObject* node)
{
    node->insert(signal.typeKey(), assignment.serverType);
    node->insert(signal.portKey(), assignment.port);
    node->insert(signal.biasKey(), biasOf(assignment));
    if (signal.hasEnableSwitch()) {
        node->insert(signal.enabledKey(), assignment.isOn);
    }
}

int biasOf(const Assignment& assignment)
{
    return assignment.serverType == kRegisterType ? qMax(assignment.element, 1) - 1 : 0;
}
