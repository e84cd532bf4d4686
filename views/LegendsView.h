// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChannelCell.h"
#include "IndependentCell.h"
#include "Tab.h"
#include "TitleBarHandler.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QList>
#include <QPoint>

#include <array>

class CellRowTable;
class Console;
class FaderBlock;
class GMButtonRow;
class TitleBar;

// The playback tab: every channel with its live (or, in blind mode, blind)
// level and legends, the independents, and the console's playback blocks.
class LegendsView : public QGraphicsView, public Tab, public TitleBarHandler
{
    Q_OBJECT

public:
    class ChannelCell : public ::ChannelCell
    {
    public:
        ChannelCell(CellRow* row, Console* console, int channel);
        QString text() const override;
        quint8 level() const override;
        bool isBlind() const override;
        // A device's control channel while the device is selected.
        bool isHighlighted() const override;
    };

    class IndependentCell : public ::IndependentCell
    {
    public:
        IndependentCell(CellRow* row, Console* console, int independent);
        QString text() const override;
        quint8 level() const override;
        bool isHighlighted() const override { return false; }
    };

    // Where the items stand in the scene; each model has its own set, all
    // inside the 1280 pixels the main window gives a view.
    struct Layout
    {
        QPoint channels;
        int channelsPerRow;
        QPoint independents;
        QPoint gmButtons;
        QPoint timeline;
        QPoint cuelist;
        int cuelistRows;
        bool cuelistDetails;
        qreal cuelistExtraHeight;
        std::array<QPoint, 2> faderBlocks;
        int fadersPerBlock;
    };
    static constexpr qreal timelineExtraHeight = 18;
    static Layout layout(int consoleType);

    LegendsView(QWidget* window, TitleBar* bar, bool wide);
    ~LegendsView() override;

    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override;

    const QList<ChannelCell*>& channelCells() const { return channels; }
    const QList<IndependentCell*>& independentCells() const { return independents; }

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCacheChannelsUpdated();
    void consoleCacheBlindLevelsUpdated();
    void consoleCacheIndependentsUpdated();
    void consoleCacheDeviceStatusUpdated();
    void consoleCacheConsoleStatusUpdated();

private:
    void buildChannelTable(const Layout& place);
    void buildIndependentTable(const Layout& place);
    void buildBlocks(const Layout& place);
    void connectConsole();
    // Repaints the channel cells whose look changed; all when forced.
    void repaintChannels(bool all = false);
    void repaintIndependents();

    QGraphicsScene itemScene;
    TitleBar* bar;
    Console* console;
    int consoleType;
    QList<ChannelCell*> channels;
    QList<IndependentCell*> independents;
    // What each channel cell last showed (level, blind, highlight), so that
    // a tick repaints only the cells that changed.
    QList<int> shown;
};
