// SPDX-License-Identifier: GPL-3.0-or-later
#include "TabRegistry.h"

#include <type_traits>

#include "ConsoleLink.h"
#include "DMXView.h"
#include "EffectsView.h"
#include "GroupsView.h"
#include "MainFrame.h"
#include "MemoriesView.h"
#include "OutputView.h"
#include "PalettesView.h"
#include "PatchView.h"
#include "SequencesView.h"
#include "SystemView.h"

namespace {
// A view takes the window and the title bar, and the wide-screen flag when
// its layout depends on it; extra arguments follow.
template <class View, class... Extra>
TabRegistry::Factory viewFactory(Extra... extra)
{
    return [extra...](MainFrame* window, TitleBar* bar, bool wide) -> Tab* {
        if constexpr (std::is_constructible_v<View, MainFrame*, TitleBar*, bool, Extra...>)
            return new View(window, bar, wide, extra...);
        else
            return new View(window, bar, extra...);
    };
}
} // namespace

const TabRegistry& TabRegistry::standard()
{
    // One line per view.
    static const TabRegistry views = [] {
        TabRegistry table;
        table.setFactory(MainFrame::DmxTab, viewFactory<DMXView>());
        table.setFactory(MainFrame::EffectsTab, viewFactory<EffectsView>());
        table.setFactory(MainFrame::GroupsTab, viewFactory<GroupsView>());
        table.setFactory(MainFrame::MemoriesTab, [](MainFrame* window, TitleBar* bar, bool) -> Tab* {
            return new MemoriesView(window, ConsoleLink::console(), bar);
        });
        table.setFactory(MainFrame::OutputTab, viewFactory<OutputView>());
        table.setFactory(MainFrame::PalettesTab, [](MainFrame* window, TitleBar* bar, bool) -> Tab* {
            return new PalettesView(window, ConsoleLink::console(), bar);
        });
        table.setFactory(MainFrame::PatchTab, [](MainFrame* window, TitleBar* bar, bool) -> Tab* {
        table.setFactory(MainFrame::SequencesTab, viewFactory<SequencesView>());
        table.setFactory(MainFrame::SystemTab, viewFactory<SystemView>());
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
