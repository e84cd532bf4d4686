// SPDX-License-Identifier: GPL-3.0-or-later
// Anchor for the compiled-in resource library; the files themselves are added by CMake.
