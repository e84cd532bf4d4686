// SPDX-License-Identifier: GPL-3.0-or-later
#include "TabRegistry.h"

#include <type_traits>

#include "ConsoleLink.h"
#include "DMXView.h"
#include "EffectsView.h"
#include "GroupsView.h"
#include "LegendsView.h"
#include "MainFrame.h"
#include "MemoriesView.h"
#include "OutputView.h"
#include "PagesView.h"
#include "PalettesView.h"
#include "PatchView.h"
#include "SequencesView.h"
#include "SystemView.h"

namespace {
// Views take the window and the title bar, some the wide-screen flag or the
// console as well; extra arguments follow.
template <class View, class... Extra>
TabRegistry::Factory viewFactory(Extra... extra)
{
    return [extra...](MainFrame* window, TitleBar* bar, bool wide) -> Tab* {
        [[maybe_unused]] Console* console = ConsoleLink::console();
        if constexpr (std::is_constructible_v<View, MainFrame*, TitleBar*, bool, Extra...>)
            return new View(window, bar, wide, extra...);
        else if constexpr (std::is_constructible_v<View, Console*, MainFrame*, TitleBar*>)
            return new View(console, window, bar);
        else if constexpr (std::is_constructible_v<View, MainFrame*, Console*, TitleBar*>)
            return new View(window, console, bar);
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
        table.setFactory(MainFrame::LegendsTab, viewFactory<LegendsView>());
        table.setFactory(MainFrame::MemoriesTab, viewFactory<MemoriesView>());
        table.setFactory(MainFrame::OutputTab, viewFactory<OutputView>());
        table.setFactory(MainFrame::PalettesTab, viewFactory<PalettesView>());
        table.setFactory(MainFrame::PagesTab, viewFactory<PagesView>(0));
        table.setFactory(MainFrame::PatchTab, viewFactory<PatchView>());
        table.setFactory(MainFrame::SecondPagesTab, viewFactory<PagesView>(1));
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
