// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences: copies of the settings to change, one table of their fields, and their application.
#pragma once

#include "engine/run/modFileIO.h"
#include "platform/desktop/modAssociation.h"
#include "platform/language/modColorNames.h"

#include <QString>

#include <span>
#include <variant>

namespace ob {

// Copies of the settings shown by the preferences. tabSize is the number in its box, clamped when applied; comments is
// the text of the comments file.
struct Preferences {
    QString fontName;
    int fontSize = 0; // points
    bool fontBold = false;
    int syntaxColor = 0; // 1 for on, 0 for off
    int tabSize = 0;     // columns
    QString optionalHelpPath;
    QString orchardPath;
    QString helpPath;
    QString freeformPath;
    QString runtimePath;
    bool quitQuery = false;
    bool autoIndent = false;
    bool lineNums = false;
    bool highlightOn = false;
    bool indentGuidesOn = false;
    bool openFileOn = false;
    ColorRef commentColor = 0;
    ColorRef branchColor = 0;
    ColorRef keywordColor = 0;
    ColorRef quoteColor = 0;
    ColorRef highlightColor = 0;
    ColorRef numberColor = 0;
    ColorRef handleColor = 0;
    ColorRef commentBackColor = 0;
    bool addComments = false;
    QString comments;
};

// A copy and the setting that it is a copy of.
template <class Value>
struct Field {
    Value Preferences::*copy;
    Value* setting;
};

// The part of a sample that has its colour.
enum class Ground { Text, Back };

// Whether a field is written before or after the code windows are styled again.
enum class Turn { BeforeWindows, AfterWindows };

// One field: the control that shows it, and for a path the button that browses for it.
struct PreferenceRow {
    const char* control;
    std::variant<Field<QString>, Field<bool>, Field<int>, Field<ColorRef>> field;
    const char* browse = nullptr;
    OutsideFile file = OutsideFile::Orchard;
    Ground ground = Ground::Text;
    Turn turn = Turn::BeforeWindows;
};

// Every field, in the order in which they are applied.
std::span<const PreferenceRow> PreferenceRows();

// The settings as they are now, and the comments file of folder. Any colouring above 0 is on.
Preferences LoadPreferences(const QString& folder);

// The number of a typed tab size: below -1 it is 1, above 12 it is 12. A text without a number is 0.
int TypedTabSize(const QString& text);

// Applies the copies: to the settings, the open code windows, the comments file of folder unless the text is empty, and
// the settings store. The tab size becomes 1 to 12, in values too. A failing step is ignored.
void ApplyPreferences(Preferences& values, const QString& folder);

// Sets the eight default colours, also in values; windows show them from the next apply on.
void TakeDefaultColors(Preferences& values);

// Asks whether the program's files should open with it; associates them and shows the result.
void AssociateFiles(const AssociationPlaces& places);

} // namespace ob
