// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/CellRowTable.h"
#include "toolkit/Tab.h"

#include <QGraphicsView>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <QString>

#include <array>
#include <functional>

class Console;
class ConsoleCache;
class QGraphicsScene;
class QMimeData;
class TitleBar;

// The patch tab: channels, independents and devices onto DMX addresses and
// MIDI circuits onto channels, all by drag and drop. Channel and MIDI patches
// are written into the record here; devices go through the engine commands.
class PatchView : public QGraphicsView, public Tab
{
    Q_OBJECT

public:
    class ChannelCell;
    class IndependentCell;
    class UniverseBlock;
    class MidiBlock;
    class Trashcan;
    class IndependentOptions;

    // The view's grids; nothing beyond the toolkit's table.
    class CellRowTable : public ::CellRowTable
    {
    public:
        using ::CellRowTable::CellRowTable;
        ~CellRowTable() override;
    };

    // What a drag carries: a keyword and the 0-based numbers of its items.
    enum class Keyword
    {
        None,
        Channels,
        Outputs,
        Devices,
        Circuits,
        Independents
    };
    struct Payload
    {
        Keyword keyword = Keyword::None;
        QList<int> numbers;
    };
    static constexpr int maxChannelCells = 96;
    static constexpr int addressCount = 1024;
    static constexpr int maxDevices = 24;
    static constexpr int circuitCount = 128;
    static constexpr int independentCount = 2;
    static constexpr int trashcanGap = 5;
    static constexpr int optionsGap = 60;
    static constexpr int independentTableX = 1078;
    static constexpr int blockGap = 5;

    PatchView(Console* console, QWidget* parent, TitleBar* bar = nullptr);
    ~PatchView() override;

    // Tab.
    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;

    ConsoleCache* cache() const;
    QGraphicsScene* patchScene() const { return m_scene; }
    const QList<ChannelCell*>& channelCells() const { return m_channelCells; }
    const QList<UniverseBlock*>& universeBlocks() const { return m_universeBlocks; }
    MidiBlock* midiBlock() const { return m_midiBlock; }
    IndependentCell* independentCell(int i) const { return m_independentCells[size_t(i)]; }
    Trashcan* trashcan() const { return m_trashcan; }
    IndependentOptions* independentOptions() const { return m_independentOptions; }
    CellRowTable* channelTable() const { return m_channelTable; }
    CellRowTable* independentTable() const { return m_independentTable; }
    // The personality menu of the last device-channel drop, while it is open.
    QMenu* personalityMenu() const { return m_personalityMenu; }

    // Selection.
    void clearSelection();
    bool isChannelSelected(int channel) const { return m_selectedChannels[size_t(channel)]; }
    bool isOutputSelected(int address) const { return m_selectedOutputs[size_t(address)]; }
    bool isDeviceSelected(int device) const { return m_selectedDevices[size_t(device)]; }
    bool isCircuitSelected(int circuit) const { return m_selectedCircuits[size_t(circuit)]; }
    bool isIndependentSelected(int i) const { return m_selectedIndependents[size_t(i)]; }
    // A press on an item of a kind: toggles with Control, selects it alone
    // when plain and not yet selected. True when the press arms a drag.
    bool pressChannel(int channel, Qt::KeyboardModifiers modifiers);
    bool pressOutput(int address, Qt::KeyboardModifiers modifiers);
    bool pressDevice(int device, Qt::KeyboardModifiers modifiers);
    bool pressCircuit(int circuit, Qt::KeyboardModifiers modifiers);
    bool pressIndependent(int independent, Qt::KeyboardModifiers modifiers);

    // Payload text of a kind for the selected items; empty when none is.
    QString selectionPayload(Keyword keyword) const;
    // The outputs, else the devices of the selection.
    QString universePayload() const;
    // Runs a drag with the text; the default executes a QDrag from source.
    void startDrag(QWidget* source, const QString& text);
    using DragRunner = std::function<void(QMimeData*)>;
    // Tests take the drag's data here instead of entering the drag loop.
    void setDragRunner(DragRunner runner) { m_dragRunner = std::move(runner); }

    // Reads a drop's text; keyword None for anything malformed or out of range.
    Payload parse(const QMimeData* data) const;
    static Keyword keywordOf(const QMimeData* data);
    static QString keywordText(Keyword keyword);

    // Drops. Each returns whether the record or the engine was told anything.
    bool dropOnAddress(int address, const Payload& payload, const QPoint& screenPos);
    bool dropOnChannel(int channel, const Payload& payload);
    bool dropOnIndependent(int independent, const Payload& payload);
    bool dropOnTrashcan(const Payload& payload);
    // Acts on the data of a personality menu action.
    void personalityChosen(const QString& data);

    // Tool tips: of whatever lies at a scene position, or of one item.
    QString toolTipAt(const QPointF& scenePos) const;
    QString channelToolTip(int channel) const;
    QString addressToolTip(int address) const;
    QString circuitToolTip(int circuit) const;

    // Redraws every item after a selection or data change.
    void refreshItems();

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCachePatchUpdated();
    void consoleCacheIndependentsUpdated();
    void consoleCacheDeviceUpdated(int device);
    void consoleCacheOutputsOrChannelsUpdated();

protected:
    bool viewportEvent(QEvent* event) override;

private:
    void buildScene();
    void buildChannelTable(int model);
    void buildIndependentTable();
    bool press(bool* flag, Qt::KeyboardModifiers modifiers);
    QMenu* buildPersonalityMenu(int deviceChannels, int space);
    bool patchValues(const QList<int>& values, int address);
    bool clearAddressesCarrying(int value);
    int addressLimit() const;

    Console* m_console;
    TitleBar* m_bar;
    QGraphicsScene* m_scene;
    CellRowTable* m_channelTable = nullptr;
    CellRowTable* m_independentTable = nullptr;
    QList<ChannelCell*> m_channelCells;
    QList<UniverseBlock*> m_universeBlocks;
    MidiBlock* m_midiBlock = nullptr;
    std::array<IndependentCell*, independentCount> m_independentCells{};
    Trashcan* m_trashcan = nullptr;
    IndependentOptions* m_independentOptions = nullptr;

    std::array<bool, maxChannelCells> m_selectedChannels{};
    std::array<bool, addressCount> m_selectedOutputs{};
    std::array<bool, maxDevices> m_selectedDevices{};
    std::array<bool, circuitCount> m_selectedCircuits{};
    std::array<bool, independentCount> m_selectedIndependents{};

    DragRunner m_dragRunner;
    QPointer<QMenu> m_personalityMenu;
    // The device channels and address of the drop the menu was opened for.
    QList<int> m_menuChannels;
    int m_menuAddress = 0;
};
