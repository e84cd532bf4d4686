// SPDX-License-Identifier: GPL-3.0-or-later
#include "TabRegistry.h"

#include "MainFrame.h"
#include "SequencesView.h"
#include "views/LegendsView.h"
#include "views/PagesView.h"

const TabRegistry& TabRegistry::standard()
{
    // Each editor view adds its factory to this table as it is written.
    static const TabRegistry views = [] {
        TabRegistry table;
        table.setFactory(MainFrame::LegendsTab, [](MainFrame* w, TitleBar* b, bool wide) -> Tab* {
            return new LegendsView(w, b, wide);
        });
        table.setFactory(MainFrame::PagesTab, [](MainFrame* w, TitleBar* b, bool wide) -> Tab* {
            return new PagesView(w, b, wide, 0);
        });
        table.setFactory(MainFrame::SecondPagesTab,
                         [](MainFrame* w, TitleBar* b, bool wide) -> Tab* {
                             return new PagesView(w, b, wide, 1);
                         });
        table.setFactory(MainFrame::SequencesTab, [](MainFrame* window, TitleBar* bar, bool) {
            return static_cast<Tab*>(new SequencesView(window, bar));
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
