// SPDX-License-Identifier: GPL-3.0-or-later
// A tool as its room registers it: one row, from which the menu, the toolbar and the checks of the manual are made.
#pragma once

namespace ob {

// The menus that take tools, by their names.
inline constexpr char ConstructionTools[] = "mnuSpecial";
inline constexpr char PreviewTools[] = "mnuPreview";
inline constexpr char OtherTools[] = "mnuToolS";

// What a tool works on. Those that need a code window are off until there is one.
enum class ToolNeeds { Nothing, CodeWindow };

struct ToolRow {
    const char* name; // of its menu item
    const char* caption;
    const char* icon; // resources/icons/ICON.svg
    const char* page; // docs/manual/PAGE.md
    void (*show)();
    const char* menu;
    ToolNeeds needs = ToolNeeds::Nothing;
};

} // namespace ob
