// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Key codes of the panel (the LED table is indexed by the same codes).
// Flash keys: 0-23 for faders 1-24, 97-120 for faders 25-48; select keys 24-47.
namespace PanelKey {
constexpr int firstSelect = 24;
constexpr int lastSelect = 47;
constexpr int flashHighOffset = 73;
constexpr int Align = 48;
constexpr int Focus = 49;
constexpr int Color = 50;
constexpr int Beam = 51;
constexpr int Home = 52;
constexpr int HighLight = 53;
constexpr int Group = 54;
constexpr int SelectActive = 55;
constexpr int ClearSelection = 56;
constexpr int DeviceSelect = 57;
constexpr int Effect = 58;
constexpr int EditEffect = 59;
constexpr int GoMode = 60;
constexpr int Fan = 61;
constexpr int IntOnly = 62;
constexpr int Memories = 63;
constexpr int IntDevice = 64;
constexpr int BankLow = 65;  // "1-24", "1-48", "Int A"
constexpr int BankHigh = 66; // "25-48", "49-96", "Int B"
constexpr int Param1 = 67;
constexpr int Param2 = 68;
constexpr int RecordPaletteGroup = 69;
constexpr int Select = 70;
constexpr int More = 71;
constexpr int Lumidesk = 72;
constexpr int Undo = 73;
constexpr int RecordSequence = 74;
constexpr int MoveDark = 75;
constexpr int Time = 76;
constexpr int Next = 77;
constexpr int Stack = 78;
constexpr int Clear = 79;
constexpr int Back = 80;         // "<<"
constexpr int PreviousPage = 81; // "<"
constexpr int NextPage = 82;     // "v"
constexpr int Rate = 83;
constexpr int Go = 84;    // ">"
constexpr int Pause = 85; // "||"
constexpr int Solo = 86;
constexpr int BlackOut = 87;
constexpr int On = 88;
constexpr int RecordMemory = 89; // "Rec Mem", "Rec All"
constexpr int RecordSelected = 90;
constexpr int Copy = 91;
constexpr int Edit = 92; // "Edit Mem", "Edit": blind editing
constexpr int Delete = 93;
constexpr int Snapshot = 94;
constexpr int Independent1 = 95;
constexpr int Independent2 = 96;
constexpr int Magic = 121;
constexpr int count = 125;

// Panel faders beyond the page faders.
constexpr int GrandMasterFader = 48;
constexpr int BumpFader = 49;
constexpr int CrossfaderA = 50;
constexpr int CrossfaderB = 51;
} // namespace PanelKey
