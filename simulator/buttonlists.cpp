#include "simulator/buttonlists.h"

#include <algorithm>

namespace sim
{

ButtonList* ButtonLists::find(const QString& plugin, const QString& name)
{
    const auto found = std::find_if(m_lists.begin(), m_lists.end(),
                                    [&](const ButtonList& list) { return list.plugin == plugin && list.name == name; });
    return found != m_lists.end() ? &*found : nullptr;
}

void ButtonLists::give(const ButtonList& list)
{
    ButtonList kept = list;
    if (ButtonList* former = find(list.plugin, list.name)) {
        kept.on = former->on;
        *former = kept;
    } else {
        m_lists.append(kept);
    }
    emit given(kept);
}

bool ButtonLists::setOn(const QString& plugin, const QString& name, bool on)
{
    ButtonList* list = find(plugin, name);
    if (list == nullptr) {
        return false;
    }
    list->on = on;
    emit switched(plugin, name, on);
    return true;
}

void ButtonLists::withdraw(const QString& plugin)
{
    const auto isOfPlugin = [&](const ButtonList& list) { return list.plugin == plugin; };
    m_lists.erase(std::remove_if(m_lists.begin(), m_lists.end(), isOfPlugin), m_lists.end());
    emit withdrawn(plugin);
}

} // namespace sim
