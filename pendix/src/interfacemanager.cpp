#include "pendix/interfacemanager.h"

namespace pendix
{

InterfaceManager::InterfaceManager(QObject* parent) : QObject(parent) {}

InterfaceManager::~InterfaceManager() = default;

} // namespace pendix
