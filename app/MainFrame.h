// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"
#include "FrontPanel.h"
#include "FrontPanelHandler.h"
#include "ShowItemRequests.h"
#include "TabRegistry.h"
#include "TabStrip.h"
#include "TitleBar.h"

#include <QAction>
#include <QList>
#include <QRect>
#include <QTimer>
#include <QWidget>

#include <array>

class Tab;

// The program's only top-level window: its own title bar on top, the tab
// strip below, the current view in the middle and the emulated front panel
// over the bottom when asked for. It builds the tab set of the console
// model, follows the console's requests to show a view, shows a wait cursor
// while the console is busy, checks the console's version and mode, and asks
// whether to save before it closes.
class MainFrame : public QWidget, public FrontPanelHandler, public ShowItemRequests
{
    Q_OBJECT

public:
    // What stands behind a tab.
    enum TabKind
    {
        NoTab = 0,
        LegendsTab = 1,
        EffectsTab = 2,
        OutputTab = 3,
        PagesTab = 4,
        SecondPagesTab = 5,
        MemoriesTab = 6,
        SequencesTab = 7,
        GroupsTab = 8,
        PalettesTab = 9,
        PatchTab = 10,
        DmxTab = 11,
        SystemTab = 12
    };
    static constexpr int maxTabs = 11;
    static constexpr int titleBarHeight = 33;
    static constexpr int tabStripTop = 32;
    static constexpr int tabStripHeight = 25;
    static constexpr int contentTop = 56;
    static constexpr int contentWidth = 1280;
    static constexpr QSize fixedSize{1280, 1024};

    // The views come from the table of tab kinds.
    explicit MainFrame(QWidget* parent = nullptr,
                       const TabRegistry& views = TabRegistry::standard());
    ~MainFrame() override;

    // The tab kinds of a console model, in strip order.
    static QList<int> tabOrder(int consoleType);
    // Where the views go in a window of the given width and height.
    static QRect contentRect(int width, int height);
    // A screen whose free area is at least 1280 wide and more than 1024 high
    // takes the window at its fixed size; smaller screens get it full screen.
    static bool fitsFixedSize(const QRect& availableArea);
    // Shows the window by that rule on the primary screen.
    void showPlaced();
    // Views are built for a wide screen (at least 1250 pixels) or a narrow one.
    static bool wideScreen();

    TitleBar* titleBar() { return &bar; }
    TabStrip* tabStrip() { return &strip; }
    FrontPanel* frontPanel() { return &panel; }
    void setFrontPanelVisible(bool visible) override;
    int frontPanelHeight() const override { return panel.frameGeometry().height(); }

    int tabIndexOfKind(int kind) const;
    int tabKind(int index) const;
    void showSequence(Console::Sequence sequence) override;
    void showMemory(int page, int memory) override;
    bool isBusy() const { return busy; }
    // Undo and redo of the desktop's edits (Ctrl+Z; Ctrl+Shift+Z, Ctrl+Y).
    QAction* undoAction() { return &undoKey; }
    QAction* redoAction() { return &redoKey; }

public slots:
    void titleBarMinimizeButtonClicked();
    void titleBarCloseButtonClicked();
    void consoleCachePlayLoaded();
    void consoleCachePlayFileNameUpdated();
    void consoleCacheLumideskCommand(int type, int argument);
    void consoleCacheSystemBusyCommand(int queueLength);
    void consoleCacheConsoleVersionUpdated();
    void consoleCacheConsoleStatusUpdated();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildTabs(int consoleType, const TabRegistry& views);
    void addTab(int kind, Tab* tab);
    void connectConsole();
    void installEditKeys();
    void undoOrRedo(bool undo);
    // The view behind the tab of kind after making it current, or null.
    Tab* selectTabOfKind(int kind);
    void closeAfterFatalMessage(const QString& text);
    bool askToSave();
    // The page a fader has loaded, or -1 for a fader the console lacks.
    int pageOnFader(int fader) const;

    TitleBar bar;
    TabStrip strip;
    bool closeConfirmed = false;
    std::array<int, maxTabs> tabKinds{};
    FrontPanel panel;
    QTimer versionCheckTimer;
    bool busy = false;
    QAction undoKey;
    QAction redoKey;
};
