// SPDX-License-Identifier: GPL-3.0-or-later
// The routines for tool tips and status bar included in a generated program, line by line.
#include "guibuilder/modSupport.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray Lines(std::initializer_list<const char*> lines)
{
    QByteArray text;
    for (const char* line : lines)
        text += QByteArray(line) + "\r\n";
    return text;
}

QByteArray Tooltip(ControlKind kind)
{
    QString block = u"before"_s;
    AppendTooltip(block, kind, u"main", u"it", u"What it does");
    return block.toLatin1();
}

QByteArray Status(const QStringList& panels)
{
    return StatusRoutines({panels.begin(), panels.end()}).toLatin1();
}

const QByteArray MakeStart = Lines({
    "FUNCTION MakeStatusBar(hWin, caption$)",
    "    style = _WS_VISIBLE or _WS_CHILD",
    "    calldll #comctl32,\"InitCommonControls\", re as void",
    "    calldll #comctl32,\"CreateStatusWindow\", style as long, caption$ as ptr, hWin as long, 22 as long, hBar as "
    "long",
});
const QByteArray CaptionStart = Lines({
    "",
    "    '** Replace text in following lines with desired captions for panels:",
});
const QByteArray End = Lines({
    "    MakeStatusBar = hBar",
    "    END FUNCTION",
    "",
    "SUB ChangeStatusText hBar, panelID, newText$",
    "    'use this sub to update captions on statusbar",
    "    SB.SETTEXT = 1025",
    "    calldll #user32, \"SendMessageA\", hBar as long, SB.SETTEXT as long, panelID as long, newText$ as ptr, re as "
    "long",
    "    END SUB",
    "",
});
constexpr char PartsToStatus[] = "    calldll #user32,  \"SendMessageA\", hStatus as long, SB.SETPARTS as long, "
                                 "numParts As Long, prt As struct, r As Long";
constexpr char PartsToBar[] = "    calldll #user32,  \"SendMessageA\", hBar as long, SB.SETPARTS as long, "
                              "numParts As Long, prt As struct, r As Long";
constexpr char SizeToStatus[] = "    calldll #user32, \"SendMessageA\", hStatus as long, _WM_SIZE as long, 0 as long, "
                                "WindowWidth as long, re as long";

} // namespace

class tst_modSupport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Tool tips. ---

    void theTooltipsRoutineStartsAndEnds()
    {
        QCOMPARE(QString::fromUtf16(TooltipStart).toLatin1(),
                 Lines({
                     "SUB MakeTooltips hWin",
                     "    TTS.ALWAYSTIP = 1 : TTS.NOPREFIX = 2 : style = _WS_POPUP or TTS.NOPREFIX or TTS.ALWAYSTIP",
                     "    calldll #comctl32,\"InitCommonControls\", re as void",
                     "    calldll #user32, \"GetWindowLongA\", hWin as long, _GWL_HINSTANCE as long, hInstance as long",
                     "    calldll #user32, \"CreateWindowExA\", _WS_EX_TOPMOST as long,\"tooltips_class32\" as ptr, "
                     "\"\" as ptr,_",
                     "        style as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, "
                     "_CW_USEDEFAULT as long,_",
                     "        hWin as long, 0 as long, hInstance as long, \"\" as ptr, hwndTT as long",
                     "    flags=_SWP_NOMOVE or _SWP_NOSIZE or _SWP_NOACTIVATE",
                     "    calldll #user32, \"SetWindowPos\", hwndTT as long,_HWND_TOPMOST as long, 0 as long, 0 as "
                     "long, 0 as long, 0 as long, flags as long, r as long",
                     "",
                     "    'create a struct for the tooltips:",
                     "    struct toolinfo, cbSize as long, uFlags as long, hWindow as long, uId as long, x as long, y "
                     "as long, w as long, h as long, hInst as long, lpstrText$ as ptr",
                     "    toolinfo.cbSize.struct = len(toolinfo.struct)",
                     "    toolinfo.uFlags.struct = 1 Or 16",
                     "    toolinfo.hWindow.struct = hWin",
                     "",
                 }));
        QCOMPARE(QString::fromUtf16(TooltipEnd).toLatin1(), QByteArray("    END SUB\r\n\r\n"));
    }

    void aControlsTooltipIsRegistered_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("comment");
        const auto row = [](ControlKind kind, const char* comment) {
            QTest::newRow(comment) << static_cast<int>(kind) << QByteArray(comment);
        };
        row(ControlKind::Button, "'Button Tooltip:");
        row(ControlKind::Bmpbutton, "'Bmpbutton Tooltip:");
        row(ControlKind::Textbox, "'Textbox Tooltip:");
        row(ControlKind::Texteditor, "'Texteditor Tooltip:");
        row(ControlKind::Radiobutton, "'Radiobutton Tooltip:");
        row(ControlKind::Checkbox, "'Checkbox Tooltip:");
        row(ControlKind::Listbox, "'Listbox Tooltip:");
    }

    void aControlsTooltipIsRegistered()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, comment);
        QCOMPARE(Tooltip(static_cast<ControlKind>(kind)),
                 "before" + Lines({
                                comment.constData(),
                                "    toolinfo.uId.struct = hwnd(#main.it)",
                                "    toolinfo.lpstrText$.struct = \"What it does\"  '*** CHANGE TOOLTIP TEXT HERE!",
                                "    calldll #user32, \"SendMessageA\", hwndTT as long, 1028 as long, 0 as long, "
                                "toolinfo as struct, re as long",
                                "",
                            }));
    }

    void aGraphicboxSetsTheWindowAgain()
    {
        QCOMPARE(Tooltip(ControlKind::Graphicbox),
                 "before" + Lines({
                                "'Graphicbox Tooltip:",
                                "    toolinfo.hWindow.struct = hWin",
                                "    toolinfo.uId.struct = hwnd(#main.it)",
                                "    toolinfo.lpstrText$.struct = \"What it does\"  '*** CHANGE TOOLTIP TEXT HERE!",
                                "    calldll #user32, \"SendMessageA\", hwndTT as long, 1028 as long, 0 as long, "
                                "toolinfo as struct, re as long",
                                "",
                            }));
    }

    void aComboboxGivesTheEditFieldInsideIt()
    {
        QCOMPARE(Tooltip(ControlKind::Combobox),
                 "before" + Lines({
                                "'Combobox Tooltip:",
                                "    hwndCombo = hwnd(#main.it)",
                                "    calldll #user32, \"GetWindow\", hwndCombo as long, _GW_CHILD as long, "
                                "hwndComboChild as long ",
                                "    toolinfo.uId.struct = hwndComboChild",
                                "    toolinfo.lpstrText$.struct = \"What it does\"  '*** CHANGE TOOLTIP TEXT HERE!",
                                "    calldll #user32, \"SendMessageA\", hwndTT as long, 1028 as long, 0 as long, "
                                "toolinfo as struct, re as long",
                                "",
                            }));
    }

    // --- Status bar. ---

    void onePanelNeedsNoParts()
    {
        const QByteArray resize = Lines({
            "[ResizeStatus] 'resize status bar when window is resized",
            "    SB.SETPARTS = 1028",
            "    struct prt,edge1 as long",
            "    'change measurements below as needed:",
            "    sizePanel = Int(WindowWidth/1) 'divide WindowWidth by number of panels",
            "    prt.edge1.struct = -1",
            "    numParts = 1",
            PartsToStatus,
            SizeToStatus,
            "    wait",
            "",
        });
        const QByteArray caption = Lines({"    Call ChangeStatusText hBar, 0, \"Ready\""});
        QCOMPARE(Status({u"Ready"_s}), resize + MakeStart + CaptionStart + caption + End);
    }

    void morePanelsHaveEdgesFromOneAndNumbersFromZero()
    {
        const QByteArray resize = Lines({
            "[ResizeStatus] 'resize status bar when window is resized",
            "    SB.SETPARTS = 1028",
            "    struct prt,edge1 as long,edge2 as long,edge3 as long",
            "    'change measurements below as needed:",
            "    sizePanel = Int(WindowWidth/3) 'divide WindowWidth by number of panels",
            "    prt.edge1.struct = 1 * sizePanel",
            "    prt.edge2.struct = 2 * sizePanel",
            "    prt.edge3.struct = -1",
            "    numParts = 3",
            PartsToStatus,
            SizeToStatus,
            "    wait",
            "",
        });
        const QByteArray parts = Lines({
            "    SB.SETPARTS = 1028",
            "    struct prt,edge1 as long,edge2 as long,edge3 as long",
            "    'change measurements below as needed:",
            "    prt.edge1.struct = 150",
            "    prt.edge2.struct = 300",
            "    prt.edge3.struct = -1",
            "    numParts = 3",
            PartsToBar,
        });
        const QByteArray captions = Lines({
            "    Call ChangeStatusText hBar, 0, \"a\"",
            "    Call ChangeStatusText hBar, 1, \"\"",
            "    Call ChangeStatusText hBar, 2, \"c\"",
        });
        QCOMPARE(Status({u"a"_s, {}, u"c"_s}), resize + MakeStart + parts + CaptionStart + captions + End);
    }

    void twoPanelsShareTheWidth()
    {
        const QByteArray text = Status({u"a"_s, u"b"_s});
        QVERIFY(text.contains("    sizePanel = Int(WindowWidth/2) 'divide WindowWidth by number of panels\r\n"
                              "    prt.edge1.struct = 1 * sizePanel\r\n"
                              "    prt.edge2.struct = -1\r\n"));
        QVERIFY(text.contains("    prt.edge1.struct = 150\r\n    prt.edge2.struct = -1\r\n"));
        QVERIFY(!text.contains("edge3"));
    }

    void manyPanelsFollowTheSamePattern()
    {
        QStringList panels;
        for (int panel = 0; panel < 12; ++panel)
            panels.append(QString::number(panel));
        const QByteArray text = Status(panels);
        QVERIFY(text.contains(",edge11 as long,edge12 as long\r\n"));
        QVERIFY(text.contains("    prt.edge11.struct = 1650\r\n    prt.edge12.struct = -1\r\n    numParts = 12\r\n"));
        QVERIFY(text.contains("    Call ChangeStatusText hBar, 11, \"11\"\r\n    MakeStatusBar = hBar\r\n"));
    }

    void textsAreWrittenUnchanged()
    {
        QVERIFY(Status({u"%1 \"%2\" |"_s}).contains("hBar, 0, \"%1 \"%2\" |\"\r\n"));
        QString block;
        AppendTooltip(block, ControlKind::Button, u"%1", u"%2", u"%3 \"x\"");
        QVERIFY(block.contains(u"hwnd(#%1.%2)\r\n    toolinfo.lpstrText$.struct = \"%3 \"x\"\"  '***"_s));
    }
};

QTEST_APPLESS_MAIN(tst_modSupport)
#include "tst_modSupport.moc"
