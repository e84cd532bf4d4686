// SPDX-License-Identifier: GPL-3.0-or-later
#include "DevicePart.h"

#include "Cell.h"
#include "CellRowTable.h"
#include "ConsoleCache.h"
#include "NumberCell.h"
#include "NumberRow.h"
#include "ParameterCell.h"
#include "ParameterRow.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int focusGroup = 0;
constexpr int lastPaletteGroup = 2;

} // namespace

Cell* DevicePart::Factory::createGroupCell(CellRow*, int, int)
{
    return nullptr;
}

const std::array<DevicePart::ParameterEntry, DevicePart::parameterCount>&
DevicePart::parameterTable()
{
    static const std::array<ParameterEntry, parameterCount> table = {{
        {1, QT_TRANSLATE_NOOP("DevicePart", "Pan")},
        {2, QT_TRANSLATE_NOOP("DevicePart", "Tilt")},
        {48, QT_TRANSLATE_NOOP("DevicePart", "Pan Fine")},
        {49, QT_TRANSLATE_NOOP("DevicePart", "Tilt Fine")},
        {0, QT_TRANSLATE_NOOP("DevicePart", "Red/Cyan")},
        {3, QT_TRANSLATE_NOOP("DevicePart", "Green/Mag")},
        {4, QT_TRANSLATE_NOOP("DevicePart", "Blue/Yellow")},
        {5, QT_TRANSLATE_NOOP("DevicePart", "Color 1")},
        {6, QT_TRANSLATE_NOOP("DevicePart", "Color 2")},
        {7, QT_TRANSLATE_NOOP("DevicePart", "Color Temp")},
        {8, QT_TRANSLATE_NOOP("DevicePart", "Color Effect")},
        {9, QT_TRANSLATE_NOOP("DevicePart", "Shutter")},
        {10, QT_TRANSLATE_NOOP("DevicePart", "Prism")},
        {11, QT_TRANSLATE_NOOP("DevicePart", "Beam 2")},
        {12, QT_TRANSLATE_NOOP("DevicePart", "Gobo 1")},
        {13, QT_TRANSLATE_NOOP("DevicePart", "Gobo 1 Index")},
        {14, QT_TRANSLATE_NOOP("DevicePart", "Gobo 1 Rot")},
        {15, QT_TRANSLATE_NOOP("DevicePart", "Gobo 1 Mode")},
        {16, QT_TRANSLATE_NOOP("DevicePart", "Gobo 2")},
        {17, QT_TRANSLATE_NOOP("DevicePart", "Gobo 2 Index")},
        {18, QT_TRANSLATE_NOOP("DevicePart", "Gobo 2 Rot")},
        {19, QT_TRANSLATE_NOOP("DevicePart", "Gobo 2 Mode")},
        {20, QT_TRANSLATE_NOOP("DevicePart", "Zoom")},
        {21, QT_TRANSLATE_NOOP("DevicePart", "Edge")},
        {22, QT_TRANSLATE_NOOP("DevicePart", "Iris")},
        {23, QT_TRANSLATE_NOOP("DevicePart", "Frost")},
        {24, QT_TRANSLATE_NOOP("DevicePart", "User 1")},
        {25, QT_TRANSLATE_NOOP("DevicePart", "User 2")},
        {26, QT_TRANSLATE_NOOP("DevicePart", "User 3")},
        {27, QT_TRANSLATE_NOOP("DevicePart", "User 4")},
        {28, QT_TRANSLATE_NOOP("DevicePart", "User 5")},
        {29, QT_TRANSLATE_NOOP("DevicePart", "User 6")},
        {30, QT_TRANSLATE_NOOP("DevicePart", "User 7")},
        {31, QT_TRANSLATE_NOOP("DevicePart", "User 8")},
        {32, QT_TRANSLATE_NOOP("DevicePart", "Effect 1")},
        {33, QT_TRANSLATE_NOOP("DevicePart", "Effect 1 Mode")},
        {34, QT_TRANSLATE_NOOP("DevicePart", "Effect 2")},
        {35, QT_TRANSLATE_NOOP("DevicePart", "Effect 2 Mode")},
        {36, QT_TRANSLATE_NOOP("DevicePart", "Blade 1A")},
        {37, QT_TRANSLATE_NOOP("DevicePart", "Blade 1B")},
        {38, QT_TRANSLATE_NOOP("DevicePart", "Blade 2A")},
        {39, QT_TRANSLATE_NOOP("DevicePart", "Blade 2B")},
        {40, QT_TRANSLATE_NOOP("DevicePart", "Blade 3A")},
        {41, QT_TRANSLATE_NOOP("DevicePart", "Blade 3B")},
        {42, QT_TRANSLATE_NOOP("DevicePart", "Blade 4A")},
        {43, QT_TRANSLATE_NOOP("DevicePart", "Blade 4B")},
        {44, QT_TRANSLATE_NOOP("DevicePart", "Rotate")},
        {45, QT_TRANSLATE_NOOP("DevicePart", "Macro 1")},
        {46, QT_TRANSLATE_NOOP("DevicePart", "Macro 2")},
        {47, QT_TRANSLATE_NOOP("DevicePart", "Macro 3")},
    }};
    return table;
}

QString DevicePart::parameterName(int parameter)
{
    for (const ParameterEntry& entry : parameterTable()) {
        if (entry.parameter == parameter)
            return QCoreApplication::translate("DevicePart", entry.name);
    }
    return QString();
}

std::array<bool, DevicePart::parameterCount>
DevicePart::presentParameters(const ConsoleCache& cache)
{
    std::array<bool, parameterCount> present{};
    for (int device = 0; device < deviceCount; ++device) {
        for (int parameter = 0; parameter < parameterCount; ++parameter) {
            if (cache.deviceHasParameter(device, parameter))
                present[std::size_t(parameter)] = true;
        }
    }
    return present;
}

DevicePart::CellGrid DevicePart::build(CellRowTable* table, const ConsoleCache& cache,
                                       Factory& factory, Layout layout)
{
    const bool paletteGroups = layout == Layout::PaletteGroups;
    const std::array<bool, parameterCount> present = presentParameters(cache);
    CellGrid grid;
    if (paletteGroups)
        addNumberRow(table);

    const bool focus = present[pan] || present[tilt];
    if (focus || paletteGroups)
        addGroupRow(table, factory, focusGroup);
    if (focus) {
        addMonitorRow(table, factory);
        addParameterRow(table, factory, focusGroup, pan, grid);
        addParameterRow(table, factory, focusGroup, tilt, grid);
    }

    int previousGroup = focusGroup;
    for (const ParameterEntry& entry : parameterTable()) {
        const int group = ConsoleCache::parameterGroup(entry.parameter);
        if (group == focusGroup)
            continue;
        // Palette blocks open even when no device has a parameter of theirs.
        while (paletteGroups && previousGroup < std::min(group, lastPaletteGroup))
            addGroupRow(table, factory, ++previousGroup);
        if (!present[std::size_t(entry.parameter)])
            continue;
        if (group != previousGroup)
            addGroupRow(table, factory, group);
        previousGroup = group;
        addParameterRow(table, factory, group, entry.parameter, grid);
    }
    while (paletteGroups && previousGroup < lastPaletteGroup)
        addGroupRow(table, factory, ++previousGroup);

    if (!paletteGroups)
        addNumberRow(table);
    return grid;
}

void DevicePart::addGroupRow(CellRowTable* table, Factory& factory, int group)
{
    CellRow* row = factory.createGroupRow(table, group);
    for (int device = 0; device < deviceCount; ++device) {
        if (!factory.createGroupCell(row, device, group))
            break;
    }
    table->addRow(row);
}

void DevicePart::addParameterRow(CellRowTable* table, Factory& factory, int group, int parameter,
                                 CellGrid& grid)
{
    auto* row = new ParameterRow(table, parameterName(parameter), true);
    const int rowIndex = int(table->rows().size());
    for (int device = 0; device < deviceCount; ++device)
        grid[{rowIndex, device}] = factory.createParameterCell(row, device, group, parameter);
    table->addRow(row);
}

void DevicePart::addMonitorRow(CellRowTable* table, Factory& factory)
{
    auto* row = new ParameterRow(table, QString(), true);
    for (int device = 0; device < deviceCount; ++device)
        factory.createMonitorCell(row, device);
    table->addRow(row);
}

void DevicePart::addNumberRow(CellRowTable* table)
{
    auto* row = new NumberRow(table);
    for (int device = 0; device < deviceCount; ++device)
        new NumberCell(row, device);
    table->addRow(row);
}
