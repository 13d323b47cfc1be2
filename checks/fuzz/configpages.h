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
};

/// A page of the main page, with its row.
struct OpenPage {
    const ConfigPage* row;
    QWidget* widget;
};

/// Builds the package's main page once and finds the page of every row. Each sub-page is shown once: one that
/// reads a configuration node and has no row ends the process, and so does a row without a page.
QVector<OpenPage> openConfigPages(FakeHost& host);

} // namespace fuzz

#endif
