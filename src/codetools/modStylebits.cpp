// SPDX-License-Identifier: GPL-3.0-or-later
// The stylebits maker.
#include "codetools/modStylebits.h"

#include <span>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr const char* commonBits[] = {
    "WS_VISIBLE = is visible",
    "WS_BORDER = has border",
    "WS_DISABLED = initially disabled",
    "WS_DLGFRAME = dialog-type border",
    "WS_CHILD = is child window/control",
};

constexpr const char* windowBits[] = {
    "WS_CAPTION = has titlebar",         "WS_MAXIMIZE = initially maximized", "WS_MINIMIZE = initially minimized",
    "WS_MAXIMIZEBOX = has maximize box", "WS_MINIMIZEBOX = has minimize box", "WS_SIZEBOX = has sizing border",
    "WS_SYSMENU = has system menu",      "WS_POPUP = popup window",           "WS_TILED = has titlebar and border",
};

constexpr const char* buttonBits[] = {
    "BS_RIGHTBUTTON = radiobutton/checkbox on right, text on left",
    "BS_LEFTBUTTON = radiobutton/checkbox on left, text on right",
    "BS_TOP = text is at top of button",
    "BS_BOTTOM = text is at bottom",
    "BS_CENTER = text is centered horizontally",
    "BS_VCENTER = text is centered vertically",
    "BS_LEFT = text is left-justified",
    "BS_RIGHT = text is right-justified",
    "BS_MULTILINE = text is on multiple lines",
    "BS_PUSHLIKE = radiobutton/checkbox looks like pushbutton",
    "BS_BITMAP = displays a bitmap",
    "BS_ICON = displays an icon",
    "BS_TEXT = button displays text",
};

constexpr const char* comboboxBits[] = {
    "CBS_AUTOHSCROLL  = autoscrolls when user types in textbox",
    "CBS_DISABLENOSCROLL = disable (not hide) scrollbar when not needed",
    "CBS_DROPDOWN = standard OB combobox style",
    "CBS_DROPDOWNLIST = textbox cannot be typed into by user",
    "CBS_LOWERCASE = text is converted to lowercase",
    "CBS_NOINTEGRALHEIGHT = list sized as specified, not matched to text size",
    "CBS_SIMPLE = drop-down list is always displayed",
    "CBS_SORT = automatically sorts list",
    "CBS_UPPERCASE = text is converted to uppercase",
};

constexpr const char* listboxBits[] = {
    "LBS_DISABLENOSCROLL = disable (not hide) scrollbar when not needed",
    "LBS_EXTENDEDSEL  = may select multiple items using mouse and keys",
    "LBS_MULTICOLUMN = has multiple columns",
    "LBS_MULTIPLESEL = may select multiple items by double-clicking",
    "LBS_NOINTEGRALHEIGHT = list sized as specified, not matched to text size",
    "LBS_NOSEL = items can be viewed, but not selected",
    "LBS_SORT = automatically sorts list",
};

constexpr const char* textboxBits[] = {
    "ES_AUTOHSCROLL = automatically scroll line as user types",
    "ES_AUTOVSCROLL = automatically scroll page when user hit ENTER",
    "ES_CENTER = center-aligns text in multiline control",
    "ES_LEFT = left-aligns text",
    "ES_LOWERCASE = converts all characters to lowercase",
    "ES_MULTILINE = multiline control",
    "ES_NOHIDESEL = text remains selected when control loses focus",
    "ES_NUMBER = allows only digits to be entered",
    "ES_PASSWORD = displays asterisks for characters typed",
    "ES_READONLY = prevents user from typing into control",
    "ES_RIGHT = right-aligns text",
    "ES_UPPERCASE = converts all characters to uppercase",
    "ES_WANTRETURN = captures carriage return in dialog window",
};

constexpr const char* staticBits[] = {
    "SS_BITMAP = displays bitmap, use with STM_SETIMAGE",
    "SS_BLACKFRAME = control framed in Windows frame color",
    "SS_BLACKRECT = rectangle filled with Windows frame color",
    "SS_CENTER = center-aligns text, wraps text if needed",
    "SS_CENTERIMAGE = midpoint remains fixed when control is resized",
    "SS_GRAYFRAME = control framed in Windows desktop color",
    "SS_GRAYRECT = rectangle filled with Windows desktop color",
    "SS_ICON = displays icon, use with STM_SETIMAGE",
    "SS_LEFT = left-aligns text, wraps text if needed",
    "SS_LEFTNOWORDWRAP = left-aligns text, no wordwrap",
    "SS_NOPREFIX = ampersands do not indicate accelerator keys",
    "SS_RIGHT = right-aligns text, wraps text if needed",
    "SS_RIGHTIMAGE = bottom right remains fixed when control is resized",
    "SS_SIMPLE = left-aligns text, no wordwrap",
    "SS_WHITEFRAME = control framed in window background color",
    "SS_WHITERECT = rectangle filled with window background color",
};

constexpr const char* dialogBits[] = {
    "DS_CENTER = centers dialog window on desktop",
    "DS_CENTERMOUSE = opens at mouse pos, cursor centered in dialog",
    "DS_CONTROL = dialog works well as child of another dialog",
    "DS_FIXEDSYS = use SYSTEM_FIXED_FONT instead of SYSTEM_FONT",
    "DS_MODALFRAME = dialog window with a modal dialog-box frame ",
    "DS_SETFOREGROUND = brings dialog window to foreground",
    "DS_SYSMODAL = makes dialog window system-modal",
};

constexpr const char* extendedWindowBits[] = {
    "WS_EX_ACCEPTFILES = this style accepts drag-drop files",
    "WS_EX_APPWINDOW = Forces window to the taskbar when minimized",
    "WS_EX_CONTROLPARENT = can navigate child windows using tab key",
    "WS_EX_DLGMODALFRAME = a window that has a double border",
    "WS_EX_MDICHILD = Creates an MDI child window",
    "WS_EX_OVERLAPPEDWINDOW = CLIENTEDGE & WINDOWEDGE",
    "WS_EX_PALETTEWINDOW = WINDOWEDGE & TOOLWINDOW & TOPMOST",
    "WS_EX_TOOLWINDOW = titlebar and its font small, not in taskbar",
    "WS_EX_TOPMOST = stays above other windows, even if inactive",
    "WS_EX_TRANSPARENT = window is transparent",
};

constexpr const char* extendedBits[] = {
    "WS_EX_CLIENTEDGE = has a border with a sunken edge",
    "WS_EX_DLGMODALFRAME = a window that has a double border",
    "WS_EX_STATICEDGE = three-dimensional border style ",
    "WS_EX_WINDOWEDGE = has a border with a raised edge",
};

constexpr const char* helpParagraphs[] = {
    "In the Stylebits Wizard, select extended stylebits by checking the 'Extended Styles' checkbox, or regular "
    "stylebits by clearing it.",
    "Choose to remove bits by setting the 'Remove Bits' radiobutton, or choose to add bits by setting the 'Add Bits' "
    "radiobutton. ",
    "Check as many bits as needed. Descriptions are given in listbox along with names of bits.",
    "To add regular stylebits to a window or control, OR them together in the AddBits location. ",
    "To remove regular stylebits from a window or control, OR them together in the RemoveBits location. ",
    "To add extended stylebits to a window or control, OR them together in the AddExBits location. ",
    "To remove extended stylebits from a window or control, OR them together in the RemoveExBits location. ",
};

struct ObjectBits {
    const char* object;
    std::span<const char* const> bits;
};

// "StaticText" of the box and "Statictext" here differ, so a static text shows only the bits of all objects.
constexpr ObjectBits ownBits[] = {
    {"Window", windowBits},      {"Graphicbox", windowBits}, {"Groupbox", windowBits}, {"Button", buttonBits},
    {"Radiobutton", buttonBits}, {"Checkbox", buttonBits},   {"Listbox", listboxBits}, {"Combobox", comboboxBits},
    {"Textbox", textboxBits},    {"Statictext", staticBits}, {"Dialog", dialogBits},
};

constexpr const char* objects[] = {
    "Button",  "Checkbox",    "Combobox",   "Dialog",  "Graphicbox", "Groupbox",
    "Listbox", "Radiobutton", "StaticText", "Textbox", "Window",
};

QStringList ListOf(std::span<const char* const> texts)
{
    QStringList list;
    for (const char* text : texts)
        list.append(QString::fromLatin1(text));
    return list;
}

QStringList OwnEntries(const QString& object)
{
    for (const ObjectBits& own : ownBits)
        if (object == QLatin1String(own.object))
            return ListOf(own.bits);
    return {};
}

} // namespace

QStringList StylebitObjects()
{
    return ListOf(objects);
}

QStringList StylebitEntries(const QString& object, StyleKind kind)
{
    if (kind == StyleKind::Regular)
        return OwnEntries(object) + ListOf(commonBits);
    const bool isWindow = object == QLatin1String("Window") || object == QLatin1String("Dialog");
    return (isWindow ? ListOf(extendedWindowBits) : QStringList()) + ListOf(extendedBits);
}

QString StylebitName(const QString& entry)
{
    return entry.section(u' ', 0, 0);
}

std::optional<QString> StylebitsCode(const StylebitsSpec& spec)
{
    if (spec.entries.isEmpty())
        return std::nullopt;
    QStringList names;
    for (const QString& entry : spec.entries)
        names.append(u'_' + StylebitName(entry));
    const QString bits = names.join(u" OR "_s);
    const bool adds = spec.change == StyleChange::Add;
    QString places; // the four arguments after the handle
    if (spec.kind == StyleKind::Regular)
        places = adds ? bits + u", 0, 0, 0"_s : u"0, "_s + bits + u", 0, 0"_s;
    else
        places = adds ? u"0, 0, "_s + bits + u", 0"_s : u"0, 0, 0,"_s + bits;
    return u"stylebits #handle.ext, "_s + places;
}

QString StylebitsHelp()
{
    return ListOf(helpParagraphs).join(u"\r\n\r\n"_s);
}

} // namespace ob
