#ifndef TESTS_INTERFACE_NODEFORMS_H
#define TESTS_INTERFACE_NODEFORMS_H

#include "common/names.h"
#include "widgets/formfields.h"

#include <QString>
#include <QVector>

/// A member of a configuration node as the page's own table and its real form have it.
struct NodeMember {
    FieldSpec spec;
    QString caption;       ///< text beside the widget
    QString unit;          ///< empty for none
    bool isHidden = false; ///< the operator never sees the widget
    int minimum = 0;       ///< of a number
    int maximum = 0;       ///< of a number

    bool isNumber() const { return spec.read == Read::Integer || spec.read == Read::Truncated; }
    /// What a missing member, or one of another type, is shown and saved as.
    int whenMissing() const { return qBound(minimum, 0, maximum); }
};

/// A configuration node, with the command that saves it.
struct NodeForm {
    const names::node::Node* node;
    const names::command::Command* save;
    QVector<NodeMember> members; ///< in the order of the page's table
};

/// Every configuration node of the package, read from pages that are built for it. Needs a host and an application.
QVector<NodeForm> nodeForms();

/// One of the live values, as the real monitor shows it.
struct MonitorValue {
    const char* key;
    QString caption;
    double minimum; ///< of its widget, unless who opened the monitor sets another range
    double maximum;
};

QVector<MonitorValue> monitorValues();

#endif
