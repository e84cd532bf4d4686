// SPDX-License-Identifier: GPL-3.0-or-later
#include "TabRegistry.h"

#include "MainFrame.h"
#include "MemoriesView.h"
#include "PalettesView.h"

const TabRegistry& TabRegistry::standard()
{
    // Each editor view adds its factory to this table as it is written.
    static const TabRegistry views = [] {
        TabRegistry table;
        table.setFactory(MainFrame::MemoriesTab, [](MainFrame* window, TitleBar* bar, bool) {
            return MemoriesView::create(window, bar);
        });
        table.setFactory(MainFrame::PalettesTab, [](MainFrame* window, TitleBar* bar, bool) {
            return PalettesView::create(window, bar);
        });
        return table;
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
