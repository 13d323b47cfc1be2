#include "simulator/widgetexchange.h"

#include "pendix/pluginbase.h"
#include "pendixhost/nouniquewidgetregistry.h"

#include <QCoreApplication>
#include <QWidget>

#include <exception>

namespace sim
{

namespace
{

constexpr int kNotLoaded = -1;
constexpr int kNoWidget = -2;

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::WidgetExchange", text);
}

WidgetAnswer failed(const QString& plugin, const QString& how)
{
    return {kNoWidget, nullptr, tr("no widget"), tr("plug-in \"%1\" offers a widget, but %2").arg(plugin, how)};
}

} // namespace

WidgetAnswer noUniqueWidget(const QString& plugin)
{
    if (!pendixFactory()->names().contains(plugin)) {
        return {kNotLoaded, nullptr, tr("not loaded"), {}};
    }
    const pendix::NoUniqueWidgetRegistry& registry = pendix::NoUniqueWidgetRegistry::instance();
    if (!registry.offers(plugin)) {
        return {kNoWidget, nullptr, tr("offers no widget"), {}};
    }
    try {
        if (QWidget* widget = registry.create(plugin)) {
            if (widget->parentWidget() != nullptr) {
                // The asker owns what it gets, also when it was made as a part of something else.
                widget->setParent(nullptr);
            }
            return {0, widget, QString::fromLatin1(widget->metaObject()->className()), {}};
        }
    } catch (const std::exception& exception) {
        return failed(plugin, tr("its factory failed: %1").arg(QString::fromLocal8Bit(exception.what())));
    } catch (...) {
        return failed(plugin, tr("its factory failed with an unknown exception"));
    }
    return failed(plugin, tr("its factory gave nothing"));
}

} // namespace sim
