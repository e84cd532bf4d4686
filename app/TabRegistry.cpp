// SPDX-License-Identifier: GPL-3.0-or-later
#include "TabRegistry.h"

#include "EffectsView.h"
#include "GroupsView.h"
#include "MainFrame.h"

const TabRegistry& TabRegistry::standard()
{
    // Each editor view adds its factory to this table as it is written.
    static const TabRegistry views = [] {
        TabRegistry registry;
        registry.setFactory(MainFrame::EffectsTab, [](MainFrame* window, TitleBar* bar, bool) {
            return new EffectsView(window, bar);
        });
        registry.setFactory(MainFrame::GroupsTab, [](MainFrame* window, TitleBar* bar, bool) {
            return new GroupsView(window, bar);
        });
        return registry;
    }();
    return views;
}

void TabRegistry::setFactory(int kind, Factory factory)
{
    if (kind > 0 && kind < kindCount)
        factories[std::size_t(kind)] = std::move(factory);
}

Tab* TabRegistry::create(int kind, MainFrame* window, TitleBar* bar, bool wide) const
{
    if (kind <= 0 || kind >= kindCount || !factories[std::size_t(kind)])
        return nullptr;
    return factories[std::size_t(kind)](window, bar, wide);
}
