// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences: copies of the settings to change, one table of their fields, and how they are put into force.
#pragma once

#include "engine/run/modFileIO.h"
#include "platform/desktop/modAssociation.h"
#include "platform/language/modColorNames.h"

#include <QString>

#include <span>
#include <variant>

namespace ob {

// Copies of the settings that the preferences show. tabSize is the number as it stands in its box, clamped when
// applied; comments is the text of the comments file.
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

// What a colour sample shows its colour on.
enum class Ground { Text, Back };

// Whether a field is written before the code windows take font and colours again, or behind that.
enum class Turn { BeforeWindows, BehindWindows };

// One field: the control that shows it, and for a path the button that looks for it.
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

// The number that a typed tab size stands for: below -1 it is 1, above 12 it is 12. A text without a number is 0.
int TypedTabSize(const QString& text);

// Puts the copies into force: the settings, the open code windows, the comments file of folder unless the text is
// empty, the settings store. The tab size becomes 1 to 12, in values too. A step that fails is passed over.
void ApplyPreferences(Preferences& values, const QString& folder);

// Puts the eight default colours into force, for windows from the next apply on, and into values.
void TakeDefaultColors(Preferences& values);

// Asks whether the program's files shall open with it; does it and says how it went.
void AssociateFiles(const AssociationPlaces& places);

} // namespace ob
