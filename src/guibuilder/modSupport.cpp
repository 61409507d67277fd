// SPDX-License-Identifier: GPL-3.0-or-later
// The routines included in a generated program for tool tips and for a status bar.
#include "guibuilder/modSupport.h"

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString LineEnd = u"\r\n"_s;

// The struct of the panels' right edges.
QString EdgeStruct(std::size_t panelCount)
{
    QString line = u"    SB.SETPARTS = 1028\r\n    struct prt,edge1 as long"_s;
    for (std::size_t panel = 2; panel <= panelCount; ++panel)
        line += u",edge%1 as long"_s.arg(panel);
    return line + u"\r\n    'change measurements below as needed:\r\n"_s;
}

// Sets each edge but the last by edgeText, whose %1 is the panel's number, then passes the edges to the bar.
template <class EdgeText>
QString SetEdges(std::size_t panelCount, EdgeText edgeText, const QString& bar)
{
    QString lines;
    for (std::size_t panel = 1; panel < panelCount; ++panel)
        lines += u"    prt.edge%1.struct = "_s.arg(panel) + edgeText(panel) + LineEnd;
    return lines + u"    prt.edge%1.struct = -1\r\n"
                   "    numParts = %1\r\n"
                   "    calldll #user32,  \"SendMessageA\", %2 as long, SB.SETPARTS as long, numParts As "
                   "Long, prt As struct, r As Long\r\n"_s.arg(QString::number(panelCount), bar);
}

QString ResizeRoutine(std::size_t panelCount)
{
    const auto share = [](std::size_t panel) { return u"%1 * sizePanel"_s.arg(panel); };
    return u"[ResizeStatus] 'resize status bar when window is resized\r\n"_s + EdgeStruct(panelCount) +
           u"    sizePanel = Int(WindowWidth/%1) 'divide WindowWidth by number of panels\r\n"_s.arg(panelCount) +
           SetEdges(panelCount, share, u"hStatus"_s) +
           u"    calldll #user32, \"SendMessageA\", hStatus as long, _WM_SIZE as long, 0 as long, "
           "WindowWidth as long, re as long\r\n"
           "    wait\r\n"
           "\r\n"_s;
}

QString MakeRoutine(const std::vector<QString>& panels)
{
    constexpr std::size_t startWidth = 150;
    QString lines = u"FUNCTION MakeStatusBar(hWin, caption$)\r\n"
                    "    style = _WS_VISIBLE or _WS_CHILD\r\n"
                    "    calldll #comctl32,\"InitCommonControls\", re as void\r\n"
                    "    calldll #comctl32,\"CreateStatusWindow\", style as long, caption$ as ptr, hWin "
                    "as long, 22 as long, hBar as long\r\n"_s;
    if (panels.size() != 1) {
        const auto place = [](std::size_t panel) { return QString::number(panel * startWidth); };
        lines += EdgeStruct(panels.size()) + SetEdges(panels.size(), place, u"hBar"_s);
    }
    lines += u"\r\n    '** Replace text in following lines with desired captions for panels:\r\n"_s;
    for (std::size_t panel = 0; panel < panels.size(); ++panel)
        lines +=
            u"    Call ChangeStatusText hBar, "_s + QString::number(panel) + u", \""_s + panels[panel] + u"\"\r\n"_s;
    return lines + u"    MakeStatusBar = hBar\r\n"
                   "    END FUNCTION\r\n"
                   "\r\n"_s;
}

} // namespace

void AppendTooltip(QString& block, ControlKind kind, QStringView handle, QStringView name, QStringView tooltip)
{
    AppendAll(block, {u"'", LatinText(TraitsOf(kind).toolName), u" Tooltip:\r\n"});
    if (kind == ControlKind::Graphicbox)
        AppendAll(block, {u"    toolinfo.hWindow.struct = hWin\r\n"});
    // The pointer rests on the edit field inside a combo box, not on the box itself.
    const QStringView target =
        kind == ControlKind::Combobox ? QStringView(u"    hwndCombo = ") : QStringView(u"    toolinfo.uId.struct = ");
    AppendAll(block, {target, u"hwnd(#", handle, u".", name, u")\r\n"});
    if (kind == ControlKind::Combobox)
        AppendAll(block, {u"    calldll #user32, \"GetWindow\", hwndCombo as long, _GW_CHILD as long, "
                          u"hwndComboChild as long \r\n"
                          u"    toolinfo.uId.struct = hwndComboChild\r\n"});
    AppendAll(block, {u"    toolinfo.lpstrText$.struct = \"", tooltip,
                      u"\"  '*** CHANGE TOOLTIP TEXT HERE!\r\n"
                      u"    calldll #user32, \"SendMessageA\", hwndTT as long, 1028 as long, 0 as long, toolinfo as "
                      u"struct, re as long\r\n\r\n"});
}

QString StatusRoutines(const std::vector<QString>& panels)
{
    return ResizeRoutine(panels.size()) + MakeRoutine(panels) +
           u"SUB ChangeStatusText hBar, panelID, newText$\r\n"
           "    'use this sub to update captions on statusbar\r\n"
           "    SB.SETTEXT = 1025\r\n"
           "    calldll #user32, \"SendMessageA\", hBar as long, SB.SETTEXT as long, panelID as long, "
           "newText$ as ptr, re as long\r\n"
           "    END SUB\r\n"
           "\r\n"_s;
}

} // namespace ob
