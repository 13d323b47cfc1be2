#ifndef CHECKS_FUZZ_CONFIGPAGES_H
#define CHECKS_FUZZ_CONFIGPAGES_H

#include <QJsonObject>
#include <QJsonValue>
#include <QVector>

class FakeHost;
class QWidget;

namespace fuzz
{

/// How a page that edits a configuration node takes it in and gives it back.
struct ConfigPage {
    const char* className;
    const char* node;
    void (*load)(QWidget* page, const QJsonValue& config);
    QJsonObject (*save)(QWidget* page); ///< the save command: one member, the node
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
