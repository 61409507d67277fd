'*******  IMPORTANT! *******    
'Program saved as "untitled.bas"
'
'
'Bitmap saved in 256-color format as "toolbar.bmp"
'
'
'256-color format insures that button image
'backgrounds are transparent on the toolbar.

NoMainWin

If Val(Version$)<3 then
    notice "Requires at least OB3!"
    end
End If

WindowWidth = 640 : WindowHeight = 480

GoSub [InitToolbar]

Open "Toolbar Template Window" for window as #main
    #main "trapclose [quit]"
    #main "resizehandler [resizeWin]"

    GoSub [MakeToolbar]

Wait

[quit]
    calldll #gdi32, "DeleteObject",_
        hbmpTools as long, ret as boolean
    close #main : End

[resizeWin]
    ret = SendMessage(hTB, TB.AUTOSIZE, 0, 0)
'must recreate tooltips at resize in case toolbar wraps:
    calldll #user32, "DestroyWindow", hwndTip as long, Success as long
    If Success Then
        GoSub [AddTooltips]
    End If
    wait

[open]
    'place code here
    notice "You selected [open]"
    Wait
[branch3]
    'place code here
    notice "You selected [branch3]"
    Wait

'All code after this point is needed
'to create the toolbar.  Do not modify
'or remove anything below.
[InitToolbar]
'call this sub before opening window like this:
'GoSub [InitToolbar]
'hidden buttons used by toolbar code:
Button #main.hide0, "", [open], UL, -400, -400, 0, 0 
Button #main.hide1, "", [quit], UL, -400, -400, 0, 0 
Button #main.hide2, "", [branch3], UL, -400, -400, 0, 0 
RETURN

[MakeToolbar]
    hMain = Hwnd(#main)    'get window handle

    struct TBADDBITMAP,_
    hInst as long,_
    nID As Long

    struct TBBUTTON,_
    bmpID as long,_ 'index of bitmap
    cID as long,_   'command ID
    State as long,_ 'button state
    Style as long,_ 'button style
    dwData as long,_'not used
    Str As Long     'not used

    struct rect,_
    left as long,_
    top as long,_
    right as long,_
    bottom As Long

    struct toolinfo,_
    cbSize as long,_
    uFlags as long,_
    hwnd as long,_
    uId as long,_
    left as long,_
    top as long,_
    right as long,_
    bottom as long, _
    hInst as long,_
    lpstrText$ as ptr

    TB.ADDBUTTONS    = 1044
    TB.AUTOSIZE      = 1057
    TB.SETTOOLTIPS   = 1060
    TBSTYLE.BUTN     = 0
    TBSTYLE.FLAT     = 2048
    TBSTYLE.TOOLTIPS = 256
    TBSTYLE.WRAPABLE = 512
    TB.ADDBITMAP     = 1043
    TB.BUTTONCOUNT   = 1048
    TB.GETBUTTON     = 1047
    TB.GETITEMRECT   = 1053

    calldll #comctl32, "InitCommonControls", r As void

    hbmpTools=LoadBitmapSystemColors("toolbar.bmp")

    if hbmpTools=0 then
        notice "Error loading bitmap!"
        Return
    end if

    hID0 = GetWindowLong(hWnd(#main.hide0),_GWL_ID)
    hID1 = GetWindowLong(hWnd(#main.hide1),_GWL_ID)
    hID2 = GetWindowLong(hWnd(#main.hide2),_GWL_ID)

    'fill toobar button struct
    TBBUTTON.State.struct = 4              'enabled
    TBBUTTON.Style.struct = TBSTYLE.BUTN   'style

    style=_WS_CHILD Or _WS_VISIBLE Or TBSTYLE.TOOLTIPS Or TBSTYLE.WRAPABLE _
         Or TBSTYLE.FLAT
    uStructSize = Len(TBBUTTON.struct)
    calldll #comctl32, "CreateToolbarEx",_
        hMain As long,_     'parent handle
        style As long,_     'window style flags
        0 As long,_         'ID
        0 As long,_         'number of Bitmaps
        0 As long,_         'hBMInst-not used
        0 As long,_         'bitmap handle
        0 As long,_         'toolbar button struct
        0 As long,_         'number of buttons to start
        0 As long,_         'width buttons
        0 As long,_         'height buttons
        0 As long,_         'width bitmaps for buttons - Can use 0 for default of 16.
        0 As long,_         'height bitmaps for buttons - Can use 0 for default of 16.
        uStructSize As long,_
        hTB As Long         'handle to toolbar

    'add the bitmap to the toolbar
    TBADDBITMAP.hInst.struct = 0
    TBADDBITMAP.nID.struct = hbmpTools
    calldll #user32, "SendMessageA", hTB as long, _
    TB.ADDBITMAP as long, 1 as long, TBADDBITMAP as struct, TBaddbmp as long

    'add the buttons
    For i = 0 To 2
        TBBUTTON.bmpID.struct = i
        id = hID0 + i
        TBBUTTON.cID.struct = id
        calldll #user32, "SendMessageA", hTB as long, _
        TB.ADDBUTTONS as long, 1 as long, TBBUTTON as struct, r as long
    Next 

    gosub [AddTooltips]
    RETURN

[AddTooltips]
    TTS.ALWAYSTIP = 1
    TTS.NOPREFIX  = 2
    TTF.SUBCLASS  = 16
    TTM.ADDTOOL   = 1028

    style = _WS_POPUP or TTS.NOPREFIX _
         or TTS.ALWAYSTIP

    hInstance = GetWindowLong(hMain,_GWL_HINSTANCE)

    calldll #user32, "CreateWindowExA",_
    _WS_EX_TOPMOST as long,_
    "TOOLTIPS_CLASS32" as ptr,_
    "" as ptr, style as long,_
    _CW_USEDEFAULT as long,_CW_USEDEFAULT as long,_
    _CW_USEDEFAULT as long,_CW_USEDEFAULT as long,_
    hMain as long, 0 as long, hInstance as long,_
    0 as long,hwndTip as long

    'THESE STRUCT MEMBERS ONLY NEED TO BE FILLED ONCE:
    toolinfo.cbSize.struct = Len(toolinfo.struct)
    toolinfo.uFlags.struct = TTF.SUBCLASS
    toolinfo.hwnd.struct = hTB

    'THESE STRUCT MEMBERS NEED TO BE FILLED ANEW
    'FOR EACH TOOTLIP ADDED:

    'get the button rectangle
    calldll #user32, "SendMessageA", hTB as long, _
    TB.GETITEMRECT as long, 0 as long, rect as struct, r as long
    'place the tooltip over the button
    toolinfo.left.struct = rect.left.struct
    toolinfo.top.struct = rect.top.struct
    toolinfo.right.struct = rect.right.struct
    toolinfo.bottom.struct = rect.bottom.struct
    toolinfo.lpstrText$.struct = "Open a file"
    calldll #user32, "SendMessageA", hwndTip as long, _
    TTM.ADDTOOL as long, 0 as long, toolinfo as struct, r as long
    'get the button rectangle
    calldll #user32, "SendMessageA", hTB as long, _
    TB.GETITEMRECT as long, 1 as long, rect as struct, r as long
    'place the tooltip over the button
    toolinfo.left.struct = rect.left.struct
    toolinfo.top.struct = rect.top.struct
    toolinfo.right.struct = rect.right.struct
    toolinfo.bottom.struct = rect.bottom.struct
    toolinfo.lpstrText$.struct = "Leave"
    calldll #user32, "SendMessageA", hwndTip as long, _
    TTM.ADDTOOL as long, 0 as long, toolinfo as struct, r as long
    'get the button rectangle
    calldll #user32, "SendMessageA", hTB as long, _
    TB.GETITEMRECT as long, 2 as long, rect as struct, r as long
    'place the tooltip over the button
    toolinfo.left.struct = rect.left.struct
    toolinfo.top.struct = rect.top.struct
    toolinfo.right.struct = rect.right.struct
    toolinfo.bottom.struct = rect.bottom.struct
    toolinfo.lpstrText$.struct = "branch3 tooltip"
    calldll #user32, "SendMessageA", hwndTip as long, _
    TTM.ADDTOOL as long, 0 as long, toolinfo as struct, r as long

    RETURN

Function SendMessage(hWin, msg, wParam, lParam)
    calldll #user32, "SendMessageA", hWin As long, msg As long, _
    wParam As long, lParam As long, SendMessage As long
    End Function

Function GetWindowLong(hWin, type)
    calldll #user32, "GetWindowLongA",_
    hWin As long,type As long,_
    GetWindowLong As Long
    End Function

Function LoadBitmapSystemColors(bmp$)
    flags=_LR_LOADFROMFILE or _LR_LOADMAP3DCOLORS _
        or _LR_LOADTRANSPARENT
    calldll #user32, "LoadImageA",_
    0 as long, bmp$ as ptr, _IMAGE_BITMAP as ulong,_
    0 as long, 0 as long, flags as long,_
    LoadBitmapSystemColors As ulong
    End Function

'****** End Toolbar Code ******
'******************************
