'** Created by Orchard Bench - 2026-11-21
'** Every Control

    DIM List1$(10)
    List1$(1) = "First Item"
    List1$(2) = "Second Item"
    DIM Combo1$(10)
    Combo1$(1) = "First Item"
    Combo1$(2) = "Second Item"

[InitColors]
    'Please use default colors when possible.
    'Use the following color statements only if necessary in the program.
    'ForegroundColor$ = "Darkblue"
    'BackgroundColor$ = "Lightgray"
    'TexteditorColor$ = "Cyan"
    'TextboxColor$    = "White"
    'ComboboxColor$   = "Yellow"
    'ListboxColor$    = "White"

[WindowSetup]
    NOMAINWIN
    WindowWidth = 610 : WindowHeight = 470
    UpperLeftX = INT((DisplayWidth-WindowWidth)/2)
    UpperLeftY = INT((DisplayHeight-WindowHeight)/2)

[ControlSetup]
Menu        #main, "&File", "&Open", [open], | , "E&xit", [quit]
graphicbox  #main.preview, 15, 210, 265, 145
groupbox    #main.printing, "Print", 295, 10, 130, 185
statictext  #main.titleLabel, "Title:", 15, 15, 60, 20
button      #main.apply, "&Apply",[apply],UL, 295, 210, 130, 35
bmpbutton   #main.picture, "bmpbttn",[picture],UL, 295, 260
textbox     #main.title, 80, 10, 200, 25
texteditor  #main.words, 15, 45, 265, 150
radiobutton #main.colour, "In colour",[inColour],[loop], 310, 40, 100, 25
checkbox    #main.frame, "Framed",[withFrame],[checkbox1.reset], 310, 75, 100, 25
listbox     #main.pages, List1$(),[choosePage], 440, 10, 145, 150
combobox    #main.paper,Combo1$(),[choosePaper], 440, 170, 145, 300

Open "Every Control" for Window as #main
    #main "trapclose [quit]"
    #main "font courier_new 9"

    Call MakeTooltips HWND(#main)

    '** Change statusbar message at any time with sub ChangeStatusText
    '** Call ChangeStatusText hStatus, ID_of_Panel, NewText$
    '** The handle of the statusbar is hStatus
    hStatus = MakeStatusBar(HWND(#main), "StatusBar")
    #main "resizehandler [ResizeStatus]"

    TIMER 500, [activateTimer]    'initialize the timer

[loop]
    Wait

[activateTimer]
    'place code here
    wait

[quit]
    close #main : END

SUB MakeTooltips hWin
    TTS.ALWAYSTIP = 1 : TTS.NOPREFIX = 2 : style = _WS_POPUP or TTS.NOPREFIX or TTS.ALWAYSTIP
    calldll #comctl32,"InitCommonControls", re as void
    calldll #user32, "GetWindowLongA", hWin as long, _GWL_HINSTANCE as long, hInstance as long
    calldll #user32, "CreateWindowExA", _WS_EX_TOPMOST as long,"tooltips_class32" as ptr, "" as ptr,_
        style as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long,_
        hWin as long, 0 as long, hInstance as long, "" as ptr, hwndTT as long
    flags=_SWP_NOMOVE or _SWP_NOSIZE or _SWP_NOACTIVATE
    calldll #user32, "SetWindowPos", hwndTT as long,_HWND_TOPMOST as long, 0 as long, 0 as long, 0 as long, 0 as long, flags as long, r as long

    'create a struct for the tooltips:
    struct toolinfo, cbSize as long, uFlags as long, hWindow as long, uId as long, x as long, y as long, w as long, h as long, hInst as long, lpstrText$ as ptr
    toolinfo.cbSize.struct = len(toolinfo.struct)
    toolinfo.uFlags.struct = 1 Or 16
    toolinfo.hWindow.struct = hWin

'Graphicbox Tooltip:
    toolinfo.hWindow.struct = hWin
    toolinfo.uId.struct = hwnd(#main.preview)
    toolinfo.lpstrText$.struct = "How the page will look"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Button Tooltip:
    toolinfo.uId.struct = hwnd(#main.apply)
    toolinfo.lpstrText$.struct = "Takes over what you chose"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Bmpbutton Tooltip:
    toolinfo.uId.struct = hwnd(#main.picture)
    toolinfo.lpstrText$.struct = "A button with a picture"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Textbox Tooltip:
    toolinfo.uId.struct = hwnd(#main.title)
    toolinfo.lpstrText$.struct = "Stands on each page"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Texteditor Tooltip:
    toolinfo.uId.struct = hwnd(#main.words)
    toolinfo.lpstrText$.struct = "Write your text here"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Radiobutton Tooltip:
    toolinfo.uId.struct = hwnd(#main.colour)
    toolinfo.lpstrText$.struct = "Uses coloured ink"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Checkbox Tooltip:
    toolinfo.uId.struct = hwnd(#main.frame)
    toolinfo.lpstrText$.struct = "A line round the page"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Listbox Tooltip:
    toolinfo.uId.struct = hwnd(#main.pages)
    toolinfo.lpstrText$.struct = "The pages of this text"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

'Combobox Tooltip:
    hwndCombo = hwnd(#main.paper)
    calldll #user32, "GetWindow", hwndCombo as long, _GW_CHILD as long, hwndComboChild as long 
    toolinfo.uId.struct = hwndComboChild
    toolinfo.lpstrText$.struct = "Sizes of paper"  '*** CHANGE TOOLTIP TEXT HERE!
    calldll #user32, "SendMessageA", hwndTT as long, 1028 as long, 0 as long, toolinfo as struct, re as long

    END SUB

[ResizeStatus] 'resize status bar when window is resized
    SB.SETPARTS = 1028
    struct prt,edge1 as long,edge2 as long,edge3 as long
    'change measurements below as needed:
    sizePanel = Int(WindowWidth/3) 'divide WindowWidth by number of panels
    prt.edge1.struct = 1 * sizePanel
    prt.edge2.struct = 2 * sizePanel
    prt.edge3.struct = -1
    numParts = 3
    calldll #user32,  "SendMessageA", hStatus as long, SB.SETPARTS as long, numParts As Long, prt As struct, r As Long
    calldll #user32, "SendMessageA", hStatus as long, _WM_SIZE as long, 0 as long, WindowWidth as long, re as long
    wait

FUNCTION MakeStatusBar(hWin, caption$)
    style = _WS_VISIBLE or _WS_CHILD
    calldll #comctl32,"InitCommonControls", re as void
    calldll #comctl32,"CreateStatusWindow", style as long, caption$ as ptr, hWin as long, 22 as long, hBar as long
    SB.SETPARTS = 1028
    struct prt,edge1 as long,edge2 as long,edge3 as long
    'change measurements below as needed:
    prt.edge1.struct = 150
    prt.edge2.struct = 300
    prt.edge3.struct = -1
    numParts = 3
    calldll #user32,  "SendMessageA", hBar as long, SB.SETPARTS as long, numParts As Long, prt As struct, r As Long

    '** Replace text in following lines with desired captions for panels:
    Call ChangeStatusText hBar, 0, "Ready"
    Call ChangeStatusText hBar, 1, "No pages"
    Call ChangeStatusText hBar, 2, "Page 1 of 1"
    MakeStatusBar = hBar
    END FUNCTION

SUB ChangeStatusText hBar, panelID, newText$
    'use this sub to update captions on statusbar
    SB.SETTEXT = 1025
    calldll #user32, "SendMessageA", hBar as long, SB.SETTEXT as long, panelID as long, newText$ as ptr, re as long
    END SUB

