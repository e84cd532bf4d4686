// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <map>
#include <utility>

class Cell;
class CellRow;
class CellRowTable;
class ConsoleCache;
class ParameterCell;

// The device rows that the live, memory and palette views share: the Focus
// group with the pan/tilt monitors and the Pan and Tilt rows, then one row
// per parameter that some device has, grouped by parameter group, one column
// per device. Each view supplies its own cells and group rows through a
// Factory; what it gets back is where its parameter cells sit.
class DevicePart
{
public:
    static constexpr int deviceCount = 24;
    static constexpr int parameterCount = 50;
    static constexpr int pan = 1;
    static constexpr int tilt = 2;
    static constexpr int panFine = 48;
    static constexpr int tiltFine = 49;

    // (row index in the table, device) -> the parameter cell there.
    using CellGrid = std::map<std::pair<int, int>, ParameterCell*>;

    class Factory
    {
    public:
        // The header row that opens a parameter group.
        virtual CellRow* createGroupRow(CellRowTable* table, int group) = 0;
        // One cell per device in a group row; null leaves the row without cells.
        virtual Cell* createGroupCell(CellRow* row, int device, int group);
        virtual Cell* createMonitorCell(CellRow* row, int device) = 0;
        virtual ParameterCell* createParameterCell(CellRow* row, int device, int group,
                                                   int parameter) = 0;

    protected:
        ~Factory() = default;
    };

    enum class Layout
    {
        // Device numbers below; a group appears only when some device has one
        // of its parameters (live and memory views).
        GroupsPresent,
        // Device numbers on top; Focus, Color and Beam always open their block,
        // even when empty (palette view).
        PaletteGroups,
    };

    struct ParameterEntry
    {
        int parameter;
        const char* name; // translated in the DevicePart context
    };
    // Every parameter in the order the views list them, Focus first.
    static const std::array<ParameterEntry, parameterCount>& parameterTable();
    static QString parameterName(int parameter);
    // Which parameters at least one patched device has.
    static std::array<bool, parameterCount> presentParameters(const ConsoleCache& cache);

    // Adds the rows to an empty table and returns the parameter cell grid.
    static CellGrid build(CellRowTable* table, const ConsoleCache& cache, Factory& factory,
                          Layout layout = Layout::GroupsPresent);

private:
    static void addGroupRow(CellRowTable* table, Factory& factory, int group);
    static void addParameterRow(CellRowTable* table, Factory& factory, int group, int parameter,
                                CellGrid& grid);
    static void addMonitorRow(CellRowTable* table, Factory& factory);
    static void addNumberRow(CellRowTable* table);
};
