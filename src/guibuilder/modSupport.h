// SPDX-License-Identifier: GPL-3.0-or-later
// The routines included in a generated program for tool tips and for a status bar. Lines end in CR LF.
#pragma once

#include "guibuilder/modGui.h"

#include <QString>
#include <QStringView>

namespace ob {

inline void AppendAll(QString& text, std::initializer_list<QStringView> parts)
{
    for (const QStringView part : parts)
        text += part;
}

// The head of the tool tips' routine; followed by one registration per control and TooltipEnd.
inline constexpr char16_t TooltipStart[] =
    u"SUB MakeTooltips hWin\r\n"
    u"    TTS.ALWAYSTIP = 1 : TTS.NOPREFIX = 2 : style = _WS_POPUP or TTS.NOPREFIX or TTS.ALWAYSTIP\r\n"
    u"    calldll #comctl32,\"InitCommonControls\", re as void\r\n"
    u"    calldll #user32, \"GetWindowLongA\", hWin as long, _GWL_HINSTANCE as long, hInstance as long\r\n"
    u"    calldll #user32, \"CreateWindowExA\", _WS_EX_TOPMOST as long,\"tooltips_class32\" as ptr, \"\" as ptr,_\r\n"
    u"        style as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as "
    u"long,_\r\n"
    u"        hWin as long, 0 as long, hInstance as long, \"\" as ptr, hwndTT as long\r\n"
    u"    flags=_SWP_NOMOVE or _SWP_NOSIZE or _SWP_NOACTIVATE\r\n"
    u"    calldll #user32, \"SetWindowPos\", hwndTT as long,_HWND_TOPMOST as long, 0 as long, 0 as long, 0 as long, 0 "
    u"as long, flags as long, r as long\r\n"
    u"\r\n"
    u"    'create a struct for the tooltips:\r\n"
    u"    struct toolinfo, cbSize as long, uFlags as long, hWindow as long, uId as long, x as long, y as long, w as "
    u"long, h as long, hInst as long, lpstrText$ as ptr\r\n"
    u"    toolinfo.cbSize.struct = len(toolinfo.struct)\r\n"
    u"    toolinfo.uFlags.struct = 1 Or 16\r\n"
    u"    toolinfo.hWindow.struct = hWin\r\n"
    u"\r\n";

inline constexpr char16_t TooltipEnd[] = u"    END SUB\r\n\r\n";

// Appends the lines that give one control its tool tip. The kind must be one with tool tips.
void AppendTooltip(QString& block, ControlKind kind, QStringView handle, QStringView name, QStringView tooltip);

// The routines that make the status bar, keep its size and change its texts; one panel per text, at least one.
QString StatusRoutines(const std::vector<QString>& panels);

} // namespace ob
