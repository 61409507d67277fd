// SPDX-License-Identifier: GPL-3.0-or-later
// The form under design: one window record, eleven lists of controls, a menu table, status bar panels.
#pragma once

#include "guibuilder/cButtonPicture.h"
#include "platform/language/modColorNames.h"

#include <QString>

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace ob {

// The kinds of control, in the order of the palette.
enum class ControlKind {
    Button,
    Bmpbutton,
    Statictext,
    Groupbox,
    Textbox,
    Texteditor,
    Checkbox,
    Radiobutton,
    Listbox,
    Combobox,
    Graphicbox
};
inline constexpr std::size_t KindCount = 11;

// The Branch of a kind: nothing, a label that its event jumps to, or the fixed text "N/A".
enum class BranchUse { None, Label, NotApplicable };

// One kind of control: its names, and the texts used where the user entered none. `i` is a control's index.
struct KindTraits {
    ControlKind kind;
    std::string_view toolName; // arms the tool, and names the kind in generated comments
    std::string_view listName; // of the kind's list of controls on the surface
    std::string_view propWord; // in the title of the properties dialog
    std::string_view keyword;  // in the form file and in the language
    int width;                 // pixels, for a control that was placed by a click
    int height;
    std::string_view newCaption; // when placed, followed by the number; empty for a kind without one
    std::string_view loadedText; // shown by a control whose caption is not in the form file; else empty
    std::string_view nameStem;   // name at generation: this and i (at save: keyword and i)
    std::string_view tooltip;    // at generation; empty for a kind without tool tips
    BranchUse branch;
    std::string_view branchStem; // branch at generation: this, i and ".click" (at save: keyword, i and ".click")
};

inline constexpr std::array<KindTraits, KindCount> KindTable = {{
    {ControlKind::Button, "Button", "btnButton", "Button", "button", 80, 30, "Button ", "", "button", "Button Tooltip",
     BranchUse::Label, "button"},
    {ControlKind::Bmpbutton, "Bmpbutton", "bmpButton", "BmpButton", "bmpbutton", 30, 30, "", "", "bmpbutton",
     "BmpButton Tooltip", BranchUse::Label, "bmpbutton"},
    {ControlKind::Statictext, "Statictext", "StaticText", "StaticText", "statictext", 80, 30, "StaticText", "",
     "static", "", BranchUse::None, ""},
    {ControlKind::Groupbox, "Groupbox", "GroupBox", "GroupBox", "groupbox", 80, 80, "GroupBox", "", "group", "",
     BranchUse::None, ""},
    {ControlKind::Textbox, "Textbox", "TextBox", "TextBox", "textbox", 80, 30, "TextBox", "TextBox", "textbox",
     "Enter text here.", BranchUse::None, ""},
    {ControlKind::Texteditor, "Texteditor", "TextEditor", "TextEditor", "texteditor", 80, 80, "TextEditor",
     "TextEditor", "texteditor", "Right-click for an edit menu.", BranchUse::None, ""},
    {ControlKind::Checkbox, "Checkbox", "CheckBox", "CheckBox", "checkbox", 80, 30, "CheckBox ", "", "check",
     "Select desired options.", BranchUse::Label, "checkbox"},
    {ControlKind::Radiobutton, "Radiobutton", "RadioButton", "RadioButton", "radiobutton", 80, 30, "RadioButton ", "",
     "radio", "Choose one option.", BranchUse::Label, "radio"},
    {ControlKind::Listbox, "Listbox", "ListBox", "ListBox", "listbox", 80, 80, "ListBox", "ListBox", "list",
     "Click here to make a choice from the list.", BranchUse::Label, "list"},
    {ControlKind::Combobox, "Combobox", "ComboBox", "ComboBox", "combobox", 80, 30, "Combobox ", "", "combo",
     "Click arrow button to see a list of choices.", BranchUse::Label, "combo"},
    {ControlKind::Graphicbox, "Graphicbox", "GraphicBox", "GraphicBox", "graphicbox", 50, 50, "", "", "graphicbox",
     "GraphicBox Tooltip", BranchUse::NotApplicable, ""},
}};

constexpr const KindTraits& TraitsOf(ControlKind kind)
{
    return KindTable[static_cast<std::size_t>(kind)];
}

inline const QString NoBitmap = QStringLiteral("bmpbttn");
inline const QString FirstPanelText = QStringLiteral("Click here to modify Statusbar!");
inline const QString NoMenusLabel = QStringLiteral("Right-click to remove menubar. Left-click to edit menus.");
inline const QString SeparatorCaption = QStringLiteral("--bar--");

// Twips per pixel in generated programs, whatever this screen has: a form makes the same program everywhere.
inline constexpr int ProgramTwipsPerPixel = 15;

// Twips per pixel of the screen on which a form is drawn.
struct SurfaceScale {
    int x = ProgramTwipsPerPixel;
    int y = ProgramTwipsPerPixel;

    bool operator==(const SurfaceScale&) const = default;
};

// A control. Its rectangle is in twips on the drawing surface.
struct ControlRecord {
    bool visible = false; // false also for a deleted one, whose index stays in use
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    QString caption; // of a bmpbutton: the path of its bitmap, or NoBitmap
    QString tag;     // name and tool tip: the name, or name, " *", tool tip
    QString branch;
    ColorRef backColor = Rgb(255, 255, 255); // graphicbox only: its fill
    cButtonPicture picture;                  // bmpbutton only

    bool operator==(const ControlRecord&) const = default;
};

// A control's place: its kind and its index in the kind's list, from 1.
struct ControlRef {
    ControlKind kind = ControlKind::Button;
    int index = 0;

    bool operator==(const ControlRef&) const = default;
};

inline constexpr std::size_t MenuSlots = 21;

// The form as a value: a copy is a snapshot. Rectangles are in twips, colour names are those of ColorName (others are
// kept but set no colour).
struct GuiForm {
    GuiForm();

    QString GuiWindowType;
    QString caption;
    float left, top, width, height; // the designed window's outer rectangle
    QString GuiHandleName;
    ColorRef backColor; // the designed window's own colour
    QString GuiFontName;
    QString GuiFontSize;
    QString GuiForegroundColor;
    QString GuiBackgroundColor;
    QString GuiComboboxColor;
    QString GuiListboxColor;
    QString GuiTextboxColor;
    QString GuiTexteditorColor;
    bool GuiTooltipsOn = false;
    bool GuiStatusbarOn = false;
    bool GuiTimerOn = false;
    bool GuiMenuOn = true;
    std::int16_t GuiDefaultsState = -1; // -1 until the window defaults are first confirmed, then 1
    QString windowTag;                  // "open", the window type, "closed", or empty for a fresh window

    // A kind's controls, from index 1; index 0 is the template for new ones.
    std::array<std::vector<ControlRecord>, KindCount> controls;
    std::vector<ControlRef> order; // all controls, from back to front

    std::array<QString, MenuSlots> GuiMenuNames;
    std::array<std::array<QString, MenuSlots>, MenuSlots> GuiMenuItems;
    std::vector<QString> panels; // of the status bar, at least one
    QString menuLabel;           // the text on the menu bar of the designed window

    std::vector<ControlRecord>& List(ControlKind kind) { return controls[static_cast<std::size_t>(kind)]; }
    const std::vector<ControlRecord>& List(ControlKind kind) const { return controls[static_cast<std::size_t>(kind)]; }
    ControlRecord& At(ControlRef ref) { return List(ref.kind)[static_cast<std::size_t>(ref.index)]; }
    const ControlRecord& At(ControlRef ref) const { return List(ref.kind)[static_cast<std::size_t>(ref.index)]; }

    bool operator==(const GuiForm&) const = default;
};

// The form under design: its value and its state.
struct FormDesign {
    GuiForm form;
    QString file; // the form file that it was loaded from or saved to; empty for a new form

    // From opening to closing.
    bool GuiFormOpen = false;     // the form window exists
    bool GuiFormModified = false; // the form has changed since it was saved or loaded
    bool GuiFormLoading = false;  // a form file is being read; a load that failed leaves it set
    QString GuiLoadTrouble;       // why the last load failed, with file and line; empty otherwise

    // What its window shows in addition to the form itself.
    bool GuiGridOn = true;
    bool GuiStatusNoteOn = true; // the status bar's note
};

// The form under design of this run: there is exactly one.
FormDesign& GuiDesign();

// Resets the form under design to its state at the program's start.
void ResetGui();

// Resets the form to that of a new form window: no controls, no menus but a menu bar, one panel. The window record is
// unchanged.
void ClearForm(GuiForm& form);

// A window of a type that draws its graphics itself; a dialog, which has no menu.
bool IsGraphicsType(const QString& windowType);
bool IsDialogType(const QString& windowType);

// The six window types, in the order of their list.
inline constexpr std::array<std::string_view, 6> WindowTypes = {"Window",          "Window_nf", "Graphics_nsb",
                                                                "Graphics_nf_nsb", "Dialog",    "Dialog_modal"};

// Appends a copy of the kind's template, still hidden, in front of all others. Its index is the previous count of the
// list.
ControlRef AddControl(GuiForm& form, ControlKind kind);

// Paints the control last, over all others.
void BringToFront(GuiForm& form, ControlRef ref);

// Name and tool tip of a Tag: split at its first " *", the name without surrounding spaces.
struct TagParts {
    QString name;
    QString tooltip;
};
TagParts SplitTag(const QString& tag);

// Caption and branch of a menu item: the texts before its first "[" and from there on, without surrounding spaces.
struct MenuItemParts {
    QString caption;
    QString branch;
};
MenuItemParts SplitMenuItem(const QString& item);
QString JoinMenuItem(const QString& caption, const QString& branch);

// The branch with a leading "[" and a trailing "]", added where missing.
QString BracketedBranch(const QString& branch);

// The text of the menu label on the form window: each menu's name and four spaces, until the first empty one (whenEmpty
// when there is none).
QString MenuLabel(const GuiForm& form, const QString& whenEmpty);

// Sets target to the colour of that name; an unknown name leaves it unchanged.
void SetColorByName(ColorRef& target, const QString& name);

// Converts a text of the tables above.
inline QString LatinText(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace ob
