#ifndef PLUGIN_CORVANE_H
#define PLUGIN_CORVANE_H

#include "common/business.h"

#include "pendix/pluginbase.h"

#include <QPointer>

class LaserWeldPage;
class ShowStatusBar;

namespace pendix
{

/// Interface version of the library, 1. Exported.
Q_DECL_EXPORT int api();

/// The plug-in object of the laser-welding package. The host constructs it through the registered factory
/// and calls init, afterInit and render in this order.
class Corvane : public PluginBase
{
    Q_OBJECT

public:
    explicit Corvane(QObject* parent);

    /// Creates the main page, the pendant buttons and the status bar item and hands them to the host. A host that
    /// destroys the plug-in object meanwhile gets nothing more.
    void init() override;
    void afterInit() override;
    /// Styles the main page, and keeps the status bar item in step with every (re)connection of the
    /// controller. Needs init; further calls style again and connect nothing twice.
    void render() override;
    void idle() override;

    /// Describes the pendant buttons to the host and switches them on. Part of init.
    void initPhysicalButton();

    /// Shows on the status bar item whether the controller welds virtually or for real.
    void showWeldingMode(bool isVirtual);

private:
    void readWeldingMode();

    // Both belong to the host once they have been handed over.
    QPointer<LaserWeldPage> page;
    QPointer<ShowStatusBar> statusBar;
    Business m_business;
};

} // namespace pendix

#endif
