// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Notification codes (engine to program) and the request codes the program
// sends through update(). Change reports reuse the notification numbers.
namespace ConsoleCode {
constexpr int MemoryChanged = 0;
constexpr int PaletteChanged = 1;
constexpr int SequenceChanged = 2;
constexpr int StackChanged = 3;
constexpr int StackCueChanged = 4;
constexpr int PatchChanged = 5;
constexpr int DeviceChanged = 6;
constexpr int GroupChanged = 7;
constexpr int PageChanged = 8;
constexpr int ChannelTextChanged = 9;
constexpr int EffectsChanged = 10;
constexpr int MidiPatchChanged = 11;
constexpr int IndependentsChanged = 12;
constexpr int OutputsChanged = 13;
constexpr int FadersChanged = 14;
constexpr int ChannelsChanged = 15;
constexpr int OutputLevelsChanged = 16;
constexpr int PlaybackChanged = 17;
constexpr int BlindLevelsChanged = 18;
constexpr int InputsChanged = 19;
constexpr int DisplayChanged = 21;
constexpr int LedsChanged = 22;
constexpr int ConsoleStatusChanged = 23;
constexpr int DeviceStatusChanged = 24;
constexpr int PatchDevice = 29;
constexpr int UnpatchDevice = 30;
constexpr int MoveDevice = 31;
constexpr int InsertStep = 32;
constexpr int DeleteStep = 34;
constexpr int MoveStepFrom = 35;
constexpr int ShowFileNameChanged = 36;
constexpr int VersionKnown = 37;
constexpr int Ready = 38;
constexpr int System = 39;
constexpr int SystemSettingsChanged = 41;
constexpr int MoveStepTo = 42;
} // namespace ConsoleCode

// Sub-codes of ConsoleCode::System (in a).
namespace SystemCode {
constexpr int BulkBegin = 0;
constexpr int BulkEnd = 1;
constexpr int LumideskCommand = 5;
constexpr int Busy = 8;
constexpr int SelectPage = 10;
constexpr int EraseFirst = 11;
constexpr int EraseLast = 16;
} // namespace SystemCode
