#ifndef CHECKS_FUZZ_CONFIGPAGES_H
#define CHECKS_FUZZ_CONFIGPAGES_H

#include <QJsonObject>
#include <QJsonValue>
#include <QVector>

#include <functional>

class FakeHost;
class QWidget;

namespace fuzz
{

/// How a page that edits a configuration node takes it in and gives it back.
struct ConfigPage {
    const char* className;
    const char* node;
    /// Makes the page take the node in; one that asks the host for it finds it there.
    std::function<void(QWidget* page, FakeHost& host, const QJsonValue& config)> load;
    std::function<QJsonObject(QWidget* page)> save; ///< the save commands that together bring the node, by name
    /// Ends the process unless written is what a save may make of the loaded node.
    std::function<void(const FakeHost& host, const QJsonObject& config, const QJsonObject& written)> check;
    /// Whether a node says all by itself and leaves nothing as it is shown.
    std::function<bool(const QJsonObject& config)> isWhole;
};

/// A page of the main page, with its row.
struct OpenPage {
    const ConfigPage* row;
    QWidget* widget;
};

/// Lets the host offer what the shipped cell does: all of its I/O signals, and those of its registers that its nodes
/// name.
void offerPorts(FakeHost& host);

/// Builds the package's main page once and finds the page of every row. Each sub-page is shown once: one that
/// reads a configuration node and has no row ends the process, and so does a row without a page.
QVector<OpenPage> openConfigPages(FakeHost& host);

} // namespace fuzz

#endif
