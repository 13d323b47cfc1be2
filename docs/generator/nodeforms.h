#ifndef DOCS_GENERATOR_NODEFORMS_H
#define DOCS_GENERATOR_NODEFORMS_H

#include "common/names.h"

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QVector>

/// A member of a configuration node as the page's own table and its real form have it. Schemas are without a title.
struct NodeMember {
    QString key;
    QString widget;        ///< object name
    QString caption;       ///< text beside the widget
    QString unit;          ///< empty for none
    bool isHidden = false; ///< the operator never sees the widget
    bool isRead = true;    ///< false: always sent alike, whatever is published
    QString type;          ///< how it is read, in the guide's words
    QString range;         ///< what is sent, in the guide's words; empty for any value of its type
    QString whenMissing;   ///< what a missing member, or one of another type, is shown and saved as
    QJsonObject published; ///< schema of what is shown and saved unchanged
    QJsonObject sent;      ///< schema of what a save sends
};

/// A configuration node: the rows of its table in the guide, its schema, and those of the commands that save it or a
/// part of it. A node that is no flat object has schemas that are made from those of its members.
struct NodeForm {
    const names::node::Node* node;
    QVector<NodeMember> members;     ///< in the order of the page's table
    QJsonObject published;           ///< may lack what is not read, and hold more than is read
    QMap<QString, QJsonObject> sent; ///< arguments by the command's name: all members, nothing else
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
