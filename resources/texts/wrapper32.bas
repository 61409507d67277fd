struct Point,_
x as long,_
y as long

struct Rect,_
left as long,_
top as long,_
right as long,_
bottom as long

struct JOYINFO,_
wXpos as ulong,_
wYpos as ulong,_
wZpos as ulong,_
wButtons as ulong

'*******************************
'WINMM
'*******************************

Function mciSendString$(command$)
    'sends a command like "play song", returns the answer
    a$=space$(255)+chr$(0)
    CallDLL #winmm, "mciSendStringA",_
      command$ as ptr, a$ as ptr, 256 as ulong, 0 as ulong, r as ulong
    if r<>0 then a$=chr$(0)
    mciSendString$=left$(a$,instr(a$,chr$(0))-1)
End Function

Function sndPlaySound(wav$, flags)
    'flags: 0=wait for the end, 1=play on, 2=no default sound, 8=loop
    CallDLL #winmm, "sndPlaySoundA",_
      wav$ as ptr, flags as ulong, sndPlaySound as boolean
End Function

Function joyGetPos(id)
    'fills JOYINFO for joystick 0 or 1, returns 0 if it is there
    CallDLL #winmm, "joyGetPos",_
      id as ulong, JOYINFO as struct, joyGetPos as ulong
End Function

'*******************************
'URLMON
'*******************************

Function URLDownloadToFile(url$, file$)
    'saves a page or file of the web, returns 0 if done
    open "urlmon" for dll as #url
    CallDLL #url, "URLDownloadToFileA",_
      0 as ulong, url$ as ptr, file$ as ptr, 0 as ulong, 0 as ulong,_
      URLDownloadToFile as long
    close #url
End Function

'*******************************
'KERNEL AND SHELL
'*******************************

Sub Sleep ms
    'stops the program for so many milliseconds
    CallDLL #kernel32, "Sleep", ms as ulong, r as void
End Sub

Function GetShortPathName$(path$)
    'path$ with 8.3 names, empty if there is no such file
    a$=space$(260)+chr$(0)
    CallDLL #kernel32, "GetShortPathNameA",_
      path$ as ptr, a$ as ptr, 261 as ulong, n as ulong
    if n>260 then n=0
    GetShortPathName$=left$(a$,n)
End Function

Function lstrcmpi(a$, b$)
    'below 0: a$ comes first, 0: the same but for capitals
    CallDLL #kernel32, "lstrcmpiA", a$ as ptr, b$ as ptr, lstrcmpi as long
End Function

Function GetProfileString$(section$, key$, default$)
    'an entry of win.ini, default$ if it is missing
    a$=space$(255)+chr$(0)
    CallDLL #kernel32, "GetProfileStringA",_
      section$ as ptr, key$ as ptr, default$ as ptr, a$ as ptr, 256 as ulong,_
      n as ulong
    GetProfileString$=left$(a$,n)
End Function

Function GetModuleFileName$(hModule)
    'full path of a loaded DLL, of the program for 0
    a$=space$(260)+chr$(0)
    CallDLL #kernel32, "GetModuleFileNameA",_
      hModule as ulong, a$ as ptr, 261 as ulong, n as ulong
    GetModuleFileName$=left$(a$,n)
End Function

Function LoadLibrary(file$)
    'returns a handle, 0 if the DLL cannot be loaded
    CallDLL #kernel32, "LoadLibraryA", file$ as ptr, LoadLibrary as ulong
End Function

Sub FreeLibrary hModule
    CallDLL #kernel32, "FreeLibrary", hModule as ulong, r as boolean
End Sub

Function GetModuleHandle(module$)
    'handle of a loaded DLL, of the program for an empty name
    if module$="" then
        CallDLL #kernel32, "GetModuleHandleA",_
          0 as ulong, GetModuleHandle as ulong
    else
        CallDLL #kernel32, "GetModuleHandleA",_
          module$ as ptr, GetModuleHandle as ulong
    end if
End Function

Function GlobalMemoryStatus(item)
    'item 1=percent of memory in use, 2=bytes of memory, 3=free,
    '4=bytes of page file, 5=free, 6=bytes of addresses, 7=free
    struct memory,_
      size as ulong, load as ulong, total as ulong, avail as ulong,_
      totalPage as ulong, availPage as ulong, totalVirtual as ulong,_
      availVirtual as ulong
    memory.size.struct=len(memory.struct)
    CallDLL #kernel32, "GlobalMemoryStatus", memory as struct, r as void
    if item=1 then n=memory.load.struct
    if item=2 then n=memory.total.struct
    if item=3 then n=memory.avail.struct
    if item=4 then n=memory.totalPage.struct
    if item=5 then n=memory.availPage.struct
    if item=6 then n=memory.totalVirtual.struct
    if item=7 then n=memory.availVirtual.struct
    GlobalMemoryStatus=n
End Function

Function GetDriveType(root$)
    'root$ like "c:\"; 0=unknown, 1=there is none, 2=removable,
    '3=hard disk, 4=network, 5=CD, 6=RAM disk
    CallDLL #kernel32, "GetDriveTypeA", root$ as ptr, GetDriveType as ulong
End Function

Function ExtractIcon(hInst, file$, index)
    'icon of a program, DLL or icon file, the first one is 0;
    'index -1 returns how many; see GetWindowLong for hInst
    CallDLL #shell32, "ExtractIconA",_
      hInst as ulong, file$ as ptr, index as long, ExtractIcon as ulong
End Function

Sub DrawIcon hDC, x, y, hIcon
    CallDLL #user32, "DrawIcon",_
      hDC as ulong, x as long, y as long, hIcon as ulong, r as boolean
End Sub

Function WinExec(command$, how)
    'how: 0=hidden 1=normal 2=icon 3=full size; over 31 if started
    CallDLL #kernel32, "WinExec",_
      command$ as ptr, how as ulong, WinExec as ulong
End Function

Function GetWindowsDirectory$()
    a$=space$(260)+chr$(0)
    CallDLL #kernel32, "GetWindowsDirectoryA",_
      a$ as ptr, 261 as ulong, n as ulong
    if n>260 then n=0
    GetWindowsDirectory$=left$(a$,n)
End Function

Function GetSystemDirectory$()
    a$=space$(260)+chr$(0)
    CallDLL #kernel32, "GetSystemDirectoryA",_
      a$ as ptr, 261 as ulong, n as ulong
    if n>260 then n=0
    GetSystemDirectory$=left$(a$,n)
End Function

Function ShellExecute(hW, verb$, file$, params$, dir$, how)
    'verb$: "open" or "print"; params$ and dir$ may be empty
    'how is as in WinExec; returns more than 32 if it worked
    CallDLL #shell32, "ShellExecuteA",_
      hW as ulong, verb$ as ptr, file$ as ptr, params$ as ptr, dir$ as ptr,_
      how as long, ShellExecute as ulong
End Function

Function FindExecutable$(file$, dir$)
    'path of the program that opens file$, empty if none
    a$=space$(260)+chr$(0)
    CallDLL #shell32, "FindExecutableA",_
      file$ as ptr, dir$ as ptr, a$ as ptr, r as ulong
    if r<33 then a$=chr$(0)
    FindExecutable$=left$(a$,instr(a$,chr$(0))-1)
End Function

Function QueryPerformanceFrequency()
    'ticks in a second, 0 if there is no such clock
    struct ticks, low as ulong, high as ulong
    CallDLL #kernel32, "QueryPerformanceFrequency",_
      ticks as struct, r as boolean
    n=ticks.high.struct*4294967296+ticks.low.struct
    if r=0 then n=0
    QueryPerformanceFrequency=n
End Function

Function QueryPerformanceCounter()
    'ticks up to now, 0 if there is no such clock
    struct ticks, low as ulong, high as ulong
    CallDLL #kernel32, "QueryPerformanceCounter", ticks as struct, r as boolean
    n=ticks.high.struct*4294967296+ticks.low.struct
    if r=0 then n=0
    QueryPerformanceCounter=n
End Function

Function GetSpecialfolder$(id)
    'id: 0=desktop, 2=programs, 5=documents, 6=favorites,
    '7=startup, 8=recent, 9=send to, 11=start menu, 20=fonts
    a$=chr$(0)
    struct list, pidl as ulong
    CallDLL #shell32, "SHGetSpecialFolderLocation",_
      0 as ulong, id as long, list as struct, r as long
    if r=0 then
        a$=space$(260)+chr$(0)
        pidl=list.pidl.struct
        CallDLL #shell32, "SHGetPathFromIDListA",_
          pidl as ulong, a$ as ptr, ok as boolean
        if ok=0 then a$=chr$(0)
        open "ole32" for dll as #ole
        CallDLL #ole, "CoTaskMemFree", pidl as ulong, r as void
        close #ole
    end if
    GetSpecialfolder$=left$(a$,instr(a$,chr$(0))-1)
End Function

Function SHBrowseForFolder$(hW, title$)
    'the user chooses a folder; empty if none
    a$=chr$(0)
    struct browse,_
      owner as ulong, root as ulong, shown$ as ptr, title$ as ptr,_
      flags as ulong, hook as ulong, param as long, image as long
    browse.owner.struct=hW
    browse.shown$.struct=space$(260)+chr$(0)
    browse.title$.struct=title$
    browse.flags.struct=1  'only folders of the disk
    CallDLL #shell32, "SHBrowseForFolderA", browse as struct, pidl as ulong
    if pidl<>0 then
        a$=space$(260)+chr$(0)
        CallDLL #shell32, "SHGetPathFromIDListA",_
          pidl as ulong, a$ as ptr, ok as boolean
        if ok=0 then a$=chr$(0)
        open "ole32" for dll as #ole
        CallDLL #ole, "CoTaskMemFree", pidl as ulong, r as void
        close #ole
    end if
    SHBrowseForFolder$=left$(a$,instr(a$,chr$(0))-1)
End Function

Sub ShellAbout hW, program$, about$, hIcon
    CallDLL #shell32, "ShellAboutA",_
      hW as ulong, program$ as ptr, about$ as ptr, hIcon as ulong, r as long
End Sub

'*******************************
'WINDOW & USER STUFF
'*******************************

Function MessageBox(hW, message$, title$, flags)
    'flags: _MB_OK, _MB_YESNO ... or _MB_ICONHAND ...
    'returns 1=ok 2=cancel 3=abort 4=retry 5=ignore 6=yes 7=no
    CallDLL #user32, "MessageBoxA",_
      hW as ulong, message$ as ptr, title$ as ptr, flags as ulong,_
      MessageBox as long
End Function

Function MessageBoxEx(hW, message$, title$, flags, lang)
    'lang: language of the buttons, 0=that of the system
    CallDLL #user32, "MessageBoxExA",_
      hW as ulong, message$ as ptr, title$ as ptr, flags as ulong,_
      lang as word, MessageBoxEx as long
End Function

Sub MessageBeep icon
    'sound of a message box; icon: 0, _MB_ICONHAND ...
    CallDLL #user32, "MessageBeep", icon as ulong, r as boolean
End Sub

Function SystemParametersInfo(action, param, a$, update)
    'update: 0=now, 1=for good, 3=for good and tell all windows
    'SystemParametersInfo(20,0,bmpfile$,3) changes the wallpaper
    CallDLL #user32, "SystemParametersInfoA",_
      action as ulong, param as ulong, a$ as ptr, update as ulong,_
      SystemParametersInfo as boolean
End Function

Function SwapMouseButton(swap)
    'swap: 1=exchanged, 0=as usual; returns the state before
    CallDLL #user32, "SwapMouseButton",_
      swap as boolean, SwapMouseButton as boolean
End Function

Function IsZoomed(hW)
    'not 0 if the window is maximized
    CallDLL #user32, "IsZoomed", hW as ulong, IsZoomed as boolean
End Function

Function IsWindowVisible(hW)
    CallDLL #user32, "IsWindowVisible", hW as ulong, IsWindowVisible as boolean
End Function

Function IsWindowEnabled(hW)
    CallDLL #user32, "IsWindowEnabled", hW as ulong, IsWindowEnabled as boolean
End Function

Function IsIconic(hW)
    'not 0 if the window is minimized
    CallDLL #user32, "IsIconic", hW as ulong, IsIconic as boolean
End Function

Function GetWindowTextLength(hW)
    CallDLL #user32, "GetWindowTextLengthA",_
      hW as ulong, GetWindowTextLength as long
End Function

Function GetSysColor(index)
    'color of the desktop: 5=window, 8=text, 15=button face ...
    CallDLL #user32, "GetSysColor", index as long, GetSysColor as ulong
End Function

Function GetWindow(hW, relation)
    'relation: _GW_CHILD, _GW_HWNDNEXT, _GW_OWNER ...
    CallDLL #user32, "GetWindow",_
      hW as ulong, relation as ulong, GetWindow as ulong
End Function

Function GetDesktopWindow()
    CallDLL #user32, "GetDesktopWindow", GetDesktopWindow as ulong
End Function

Function GetClassName$(hW)
    'kind of window or control, like "Edit" or "Button"
    a$=space$(255)+chr$(0)
    CallDLL #user32, "GetClassNameA",_
      hW as ulong, a$ as ptr, 256 as long, n as long
    GetClassName$=left$(a$,n)
End Function

Function GetAsyncKeyState(vk)
    'below 0 while the key is down; vk: _VK_SPACE, _VK_LEFT ...
    CallDLL #user32, "GetAsyncKeyState", vk as long, GetAsyncKeyState as short
End Function

Sub ExitWindows flags
    'flags: 0=log off, 1=shut down, 2=restart
    CallDLL #user32, "ExitWindowsEx", flags as ulong, 0 as ulong, r as boolean
End Sub

Sub CloseWindow hW
    'minimizes the window, it is not destroyed
    CallDLL #user32, "CloseWindow", hW as ulong, r as boolean
End Sub

Sub GetClientRect hW
    'fills Rect: right and bottom are the size inside
    CallDLL #user32, "GetClientRect", hW as ulong, Rect as struct, r as boolean
End Sub

Sub GetWindowRect hW
    'fills Rect: the place on the screen
    CallDLL #user32, "GetWindowRect", hW as ulong, Rect as struct, r as boolean
End Sub

Sub ShowScrollBar hW, bar, state
    'bar: 0=horizontal, 1=vertical, 2=control, 3=both
    CallDLL #user32, "ShowScrollBar",_
      hW as ulong, bar as long, state as boolean, r as boolean
End Sub

Sub ClientToScreen hW
    'Point becomes a place on the screen
    CallDLL #user32, "ClientToScreen",_
      hW as ulong, Point as struct, r as boolean
End Sub

Sub ScreenToClient hW
    'Point becomes a place in the window
    CallDLL #user32, "ScreenToClient",_
      hW as ulong, Point as struct, r as boolean
End Sub

Function GetWindowWord(hW, index)
    CallDLL #user32, "GetWindowWord",_
      hW as ulong, index as long, GetWindowWord as word
End Function

Function GetWindowLong(hW, index)
    'index: _GWL_STYLE, _GWL_EXSTYLE, _GWL_HINSTANCE, _GWL_ID
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, index as long, GetWindowLong as long
End Function

Function SetWindowLong(hW, index, value)
    'index as in GetWindowLong, returns the value before
    CallDLL #user32, "SetWindowLongA",_
      hW as ulong, index as long, value as long, SetWindowLong as long
End Function

Function SendMessagePtr(hW, msg, w, p$)
    'sends a message that carries a text, like _WM_SETTEXT
    CallDLL #user32, "SendMessageA",_
      hW as ulong, msg as ulong, w as long, p$ as ptr, SendMessagePtr as long
End Function

Function SendMessageLong(hW, msg, w, l)
    'sends a message that carries two numbers, like _WM_SETFONT
    CallDLL #user32, "SendMessageA",_
      hW as ulong, msg as ulong, w as long, l as long, SendMessageLong as long
End Function

Sub SetFocus hW
    CallDLL #user32, "SetFocus", hW as ulong, r as ulong
End Sub

Function GetWindowText$(hW)
    CallDLL #user32, "GetWindowTextLengthA", hW as ulong, n as long
    a$=space$(n)+chr$(0)
    size=n+1
    CallDLL #user32, "GetWindowTextA",_
      hW as ulong, a$ as ptr, size as long, n as long
    GetWindowText$=left$(a$,n)
End Function

Function SetParent(hChild, hNew)
    'returns the parent before
    CallDLL #user32, "SetParent",_
      hChild as ulong, hNew as ulong, SetParent as ulong
End Function

Function GetParent(hW)
    CallDLL #user32, "GetParent", hW as ulong, GetParent as ulong
End Function

Sub ClipCursor state
    'state: 1=the mouse stays inside Rect, 0=it is free
    if state then
        CallDLL #user32, "ClipCursor", Rect as struct, r as boolean
    else
        CallDLL #user32, "ClipCursor", 0 as ulong, r as boolean
    end if
End Sub

Function ShowCursor(state)
    'adds or takes 1, returns the count; below 0 it is hidden
    CallDLL #user32, "ShowCursor", state as boolean, ShowCursor as long
End Function

Sub SetCursorPos x, y
    CallDLL #user32, "SetCursorPos", x as long, y as long, r as boolean
End Sub

Function GetCursorPosX()
    'place of the mouse on the screen, from the left
    CallDLL #user32, "GetCursorPos", Point as struct, r as boolean
    GetCursorPosX=Point.x.struct
End Function

Function GetCursorPosY()
    'place of the mouse on the screen, from the top
    CallDLL #user32, "GetCursorPos", Point as struct, r as boolean
    GetCursorPosY=Point.y.struct
End Function

Function GetActiveWindow()
    '0 if another program is in front
    CallDLL #user32, "GetActiveWindow", GetActiveWindow as ulong
End Function

Sub FlashWindow hW, invert
    'invert: 1=title looks changed, 0=as usual
    CallDLL #user32, "FlashWindow", hW as ulong, invert as boolean, r as boolean
End Sub

Sub MoveWindow hW, x, y, w, h
    CallDLL #user32, "MoveWindow",_
      hW as ulong, x as long, y as long, w as long, h as long,_
      1 as boolean, r as boolean
End Sub

Sub ShowWindow hW, how
    'how: as in WinExec
    CallDLL #user32, "ShowWindow", hW as ulong, how as long, r as boolean
End Sub

Sub AlwaysOnTop hW, state
    'state: 1=over all other windows, 0=as usual
    after=-2
    if state then after=-1
    flags=_SWP_NOMOVE or _SWP_NOSIZE
    CallDLL #user32, "SetWindowPos",_
      hW as ulong, after as long, 0 as long, 0 as long, 0 as long, 0 as long,_
      flags as ulong, r as boolean
End Sub

Sub SetWindowText hW, txt$
    CallDLL #user32, "SetWindowTextA", hW as ulong, txt$ as ptr, r as boolean
End Sub

Sub BringWindowToTop hW
    CallDLL #user32, "BringWindowToTop", hW as ulong, r as boolean
End Sub

Sub EnableWindow hW, state
    'state: 0=takes no mouse and keys, 1=as usual
    CallDLL #user32, "EnableWindow", hW as ulong, state as boolean, r as boolean
End Sub

Sub SetButtonState hButton, state
    'checkbox or radiobutton: 0=clear, 1=checked, 2=gray
    CallDLL #user32, "SendMessageA",_
      hButton as ulong, 241 as ulong, state as ulong, 0 as long, r as long
End Sub

Sub WinHelp hW, file$, command, topic
    'command: 3=contents, 1=topic by its number, 2=close
    CallDLL #user32, "WinHelpA",_
      hW as ulong, file$ as ptr, command as ulong, topic as ulong,_
      r as boolean
End Sub

Sub LeftMouseClick
    'down and up, where the mouse is
    CallDLL #user32, "mouse_event",_
      2 as ulong, 0 as ulong, 0 as ulong, 0 as ulong, 0 as ulong, r as void
    CallDLL #user32, "mouse_event",_
      4 as ulong, 0 as ulong, 0 as ulong, 0 as ulong, 0 as ulong, r as void
End Sub

'*******************************
'MENU STUFF:
'*******************************

Sub TrackPopupMenu hMenu, flags, x, y, hW
    'x, y: on the screen; flags: 0=left edge, 4=center, 8=right
    CallDLL #user32, "TrackPopupMenu",_
      hMenu as ulong, flags as ulong, x as long, y as long, 0 as long,_
      hW as ulong, 0 as ulong, r as boolean
End Sub

Sub AddCascadeMenu hMenu, hSub, caption$
    'the menu hSub becomes the last item of hMenu
    CallDLL #user32, "AppendMenuA",_
      hMenu as ulong, 16 as ulong, hSub as ulong, caption$ as ptr,_
      r as boolean
End Sub

Sub RemoveMenu hMenu, item, flags
    'takes an item out, its submenu lives on
    'flags: 0=item is an id, 1024=a position from 0
    CallDLL #user32, "RemoveMenu",_
      hMenu as ulong, item as ulong, flags as ulong, r as boolean
End Sub

Sub InsertMenu hMenu, item, flags, id, caption$
    'puts a new item in front of item; flags as in RemoveMenu
    CallDLL #user32, "InsertMenuA",_
      hMenu as ulong, item as ulong, flags as ulong,_
      id as ulong, caption$ as ptr, r as boolean
End Sub

Sub DeleteMenu hMenu, item, flags
    'takes an item out, its submenu is destroyed
    CallDLL #user32, "DeleteMenu",_
      hMenu as ulong, item as ulong, flags as ulong, r as boolean
End Sub

Sub ModifyMenuBitmap hMenu, item, flags, id, hBitmap
    'shows a bitmap in place of the text; see hbmp()
    how=flags or 4
    CallDLL #user32, "ModifyMenuA",_
      hMenu as ulong, item as ulong, how as ulong,_
      id as ulong, hBitmap as ulong, r as boolean
End Sub

Sub SetMenuItemBitmaps hMenu, item, flags, hClear, hCheck
    'pictures without and with a check mark
    CallDLL #user32, "SetMenuItemBitmaps",_
      hMenu as ulong, item as ulong, flags as ulong,_
      hClear as ulong, hCheck as ulong, r as boolean
End Sub

Sub CheckMenuRadioItem hMenu, first, last, item, flags
    'a dot for item, none for the others from first to last
    CallDLL #user32, "CheckMenuRadioItem",_
      hMenu as ulong, first as ulong, last as ulong,_
      item as ulong, flags as ulong, r as boolean
End Sub

Function CheckMenuItem(hMenu, item, check)
    'check: 0=no mark, 8=mark; 1024 more if item is a position
    'returns the state before, -1 if there is none
    CallDLL #user32, "CheckMenuItem",_
      hMenu as ulong, item as ulong, check as ulong, CheckMenuItem as long
End Function

Function EnableMenuItem(hMenu, item, how)
    'how: 0=enabled, 1=gray; the rest is as in CheckMenuItem
    CallDLL #user32, "EnableMenuItem",_
      hMenu as ulong, item as ulong, how as ulong, EnableMenuItem as long
End Function

Sub ModifyMenu hMenu, item, flags, id, caption$
    'gives an item a new text and a new id
    CallDLL #user32, "ModifyMenuA",_
      hMenu as ulong, item as ulong, flags as ulong,_
      id as ulong, caption$ as ptr, r as boolean
End Sub

Sub DrawMenuBar hW
    CallDLL #user32, "DrawMenuBar", hW as ulong, r as boolean
End Sub

Sub SetMenu hW, hMenu
    'gives a window another menu bar, none for 0
    CallDLL #user32, "SetMenu", hW as ulong, hMenu as ulong, r as boolean
End Sub

Function GetMenuItemID(hMenu, position)
    'id of the item at a position from 0, -1 for a submenu
    CallDLL #user32, "GetMenuItemID",_
      hMenu as ulong, position as long, GetMenuItemID as long
End Function

Function GetSubMenu(hMenu, position)
    CallDLL #user32, "GetSubMenu",_
      hMenu as ulong, position as long, GetSubMenu as ulong
End Function

Function GetMenu(hW)
    CallDLL #user32, "GetMenu", hW as ulong, GetMenu as ulong
End Function

'*******************************
'CONTROL CREATION STUFF
'*******************************

Function CreateRiched(hW, x, y, w, h)
    'text control with fonts and colors
    CallDLL #kernel32, "LoadLibraryA", "riched32.dll" as ptr, hRiched as ulong
    style=_WS_CHILD or _WS_VISIBLE or _WS_BORDER or _WS_VSCROLL
    style=style or _ES_MULTILINE or _ES_AUTOVSCROLL
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "RICHEDIT" as ptr, "" as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateRiched as ulong
End Function

Function CreateStatusWindow(hW, caption$, id)
    'bar at the foot of the window
    CallDLL #comctl32, "InitCommonControls", r as void
    style=_WS_CHILD or _WS_VISIBLE
    CallDLL #comctl32, "CreateStatusWindowA",_
      style as long, caption$ as ptr, hW as ulong, id as ulong,_
      CreateStatusWindow as ulong
End Function

Function CreateProgressBar(hW, x, y, w, h)
    'message 1025 sets the range, 1026 the position
    CallDLL #comctl32, "InitCommonControls", r as void
    style=_WS_CHILD or _WS_VISIBLE
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "msctls_progress32" as ptr, "" as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateProgressBar as ulong
End Function

Function CreateToolTips(hW, hControl, tip$)
    'a tip for a control of the window hW
    struct toolinfo,_
      cbSize as ulong, uFlags as ulong, owner as ulong, uId as ulong,_
      left as long, top as long, right as long, bottom as long, hInst as ulong,_
      tip$ as ptr
    CallDLL #comctl32, "InitCommonControls", r as void
    style=_WS_POPUP or 1 or 2  'always, no mnemonics
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      _WS_EX_TOPMOST as ulong, "tooltips_class32" as ptr,_
      "" as ptr, style as ulong, _CW_USEDEFAULT as long,_
      _CW_USEDEFAULT as long, _CW_USEDEFAULT as long, _CW_USEDEFAULT as long,_
      hW as ulong, 0 as ulong, hInst as ulong, 0 as ulong, hTip as ulong
    toolinfo.cbSize.struct=len(toolinfo.struct)
    toolinfo.uFlags.struct=1 or 16  'uId is a handle
    toolinfo.owner.struct=hW
    toolinfo.uId.struct=hControl
    toolinfo.tip$.struct=tip$
    CallDLL #user32, "SendMessageA",_
      hTip as ulong, 1028 as ulong, 0 as ulong, toolinfo as struct, r as long
    CreateToolTips=hTip
End Function

Function CreateCheckbox(hW, caption$, x, y, w, h)
    style=_WS_CHILD or _WS_VISIBLE or _WS_TABSTOP
    style=style or _BS_AUTOCHECKBOX
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "BUTTON" as ptr, caption$ as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateCheckbox as ulong
End Function

Function CreateRadiobutton(hW, caption$, x, y, w, h)
    style=_WS_CHILD or _WS_VISIBLE or _WS_TABSTOP
    style=style or _BS_AUTORADIOBUTTON
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "BUTTON" as ptr, caption$ as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateRadiobutton as ulong
End Function

Function CreateStaticText(hW, caption$, x, y, w, h)
    style=_WS_CHILD or _WS_VISIBLE
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "STATIC" as ptr, caption$ as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateStaticText as ulong
End Function

Function CreateTextEdit(hW, x, y, w, h)
    'text control of many lines
    style=_WS_CHILD or _WS_VISIBLE or _WS_BORDER or _WS_VSCROLL
    style=style or _ES_MULTILINE or _ES_AUTOVSCROLL
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "EDIT" as ptr, "" as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateTextEdit as ulong
End Function

Function CreateTextBox(hW, x, y, w, h)
    'text control of one line
    style=_WS_CHILD or _WS_VISIBLE or _WS_BORDER
    style=style or _WS_TABSTOP or _ES_AUTOHSCROLL
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "EDIT" as ptr, "" as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateTextBox as ulong
End Function

Function CreateButton(hW, caption$, x, y, w, h)
    style=_WS_CHILD or _WS_VISIBLE or _WS_TABSTOP
    style=style or _BS_PUSHBUTTON
    CallDLL #user32, "GetWindowLongA",_
      hW as ulong, _GWL_HINSTANCE as long, hInst as ulong
    CallDLL #user32, "CreateWindowExA",_
      0 as ulong, "BUTTON" as ptr, caption$ as ptr, style as ulong,_
      x as long, y as long, w as long, h as long, hW as ulong, 0 as ulong,_
      hInst as ulong, 0 as ulong, CreateButton as ulong
End Function

Function GetDC(hW)
    'to draw inside a window; 0 is the screen; see ReleaseDC
    CallDLL #user32, "GetDC", hW as ulong, GetDC as ulong
End Function

Sub ReleaseDC hW, hDC
    'after each GetDC, GetWindowDC
    CallDLL #user32, "ReleaseDC", hW as ulong, hDC as ulong, r as long
End Sub

Function GetWindowDC(hW)
    CallDLL #user32, "GetWindowDC", hW as ulong, GetWindowDC as ulong
End Function

Function CreateCompatibleDC(hDC)
    'to draw in memory; select a bitmap into it first
    CallDLL #gdi32, "CreateCompatibleDC",_
      hDC as ulong, CreateCompatibleDC as ulong
End Function

Sub DeleteDC hDC
    'gives a created device context back
    CallDLL #gdi32, "DeleteDC", hDC as ulong, r as boolean
End Sub

Sub Arc hDC, x1, y1, x2, y2, xs, ys, xe, ye
    'part of an ellipse, from the line to xs, ys on to xe, ye
    CallDLL #gdi32, "Arc",_
      hDC as ulong, x1 as long, y1 as long, x2 as long, y2 as long,_
      xs as long, ys as long, xe as long, ye as long, r as boolean
End Sub

Sub Chord hDC, x1, y1, x2, y2, xs, ys, xe, ye
    'an arc, closed by a line and filled
    CallDLL #gdi32, "Chord",_
      hDC as ulong, x1 as long, y1 as long, x2 as long, y2 as long,_
      xs as long, ys as long, xe as long, ye as long, r as boolean
End Sub

Sub Pie hDC, x1, y1, x2, y2, xs, ys, xe, ye
    'an arc, joined to the center and filled
    CallDLL #gdi32, "Pie",_
      hDC as ulong, x1 as long, y1 as long, x2 as long, y2 as long,_
      xs as long, ys as long, xe as long, ye as long, r as boolean
End Sub

Sub Rectangle hDC, x1, y1, x2, y2
    CallDLL #gdi32, "Rectangle",_
      hDC as ulong, x1 as long, y1 as long, x2 as long, y2 as long,_
      r as boolean
End Sub

Sub RoundRect hDC, x1, y1, x2, y2, w, h
    'w, h: size of the ellipse that rounds the corners
    CallDLL #gdi32, "RoundRect",_
      hDC as ulong, x1 as long, y1 as long, x2 as long, y2 as long,_
      w as long, h as long, r as boolean
End Sub

Sub Ellipse hDC, x1, y1, x2, y2
    CallDLL #gdi32, "Ellipse",_
      hDC as ulong, x1 as long, y1 as long, x2 as long, y2 as long,_
      r as boolean
End Sub

Sub DrawLine hDC, x1, y1, x2, y2
    CallDLL #gdi32, "MoveToEx",_
      hDC as ulong, x1 as long, y1 as long, 0 as ulong, r as boolean
    CallDLL #gdi32, "LineTo", hDC as ulong, x2 as long, y2 as long, r as boolean
End Sub

Sub TextOut hDC, x, y, txt$
    'x, y: upper left corner of the text
    n=len(txt$)
    CallDLL #gdi32, "TextOutA",_
      hDC as ulong, x as long, y as long, txt$ as ptr, n as long, r as boolean
End Sub

Function DrawText(hDC, txt$, flags)
    'writes into Rect; flags: _DT_WORDBREAK, _DT_CENTER ...
    'returns the height of the text
    n=len(txt$)
    CallDLL #user32, "DrawTextA",_
      hDC as ulong, txt$ as ptr, n as long, Rect as struct, flags as ulong,_
      DrawText as long
End Function

Function SetTextColor(hDC, rgb)
    'rgb=red+green*256+blue*65536, returns the color before
    CallDLL #gdi32, "SetTextColor",_
      hDC as ulong, rgb as ulong, SetTextColor as ulong
End Function

Function GetTextColor(hDC)
    CallDLL #gdi32, "GetTextColor", hDC as ulong, GetTextColor as ulong
End Function

Function GetTextExtentPoint32(hDC, txt$)
    'returns the width of a text in the font of hDC
    'Point.x.struct is the width too, Point.y.struct the height
    n=len(txt$)
    CallDLL #gdi32, "GetTextExtentPoint32A",_
      hDC as ulong, txt$ as ptr, n as long, Point as struct, r as boolean
    GetTextExtentPoint32=Point.x.struct
End Function

Function GetTextExtentPoint(hDC, txt$)
    n=len(txt$)
    CallDLL #gdi32, "GetTextExtentPointA",_
      hDC as ulong, txt$ as ptr, n as long, Point as struct, r as boolean
    GetTextExtentPoint=Point.x.struct
End Function

Function GetTextFace$(hDC)
    a$=space$(255)+chr$(0)
    CallDLL #gdi32, "GetTextFaceA",_
      hDC as ulong, 256 as long, a$ as ptr, r as long
    if r=0 then a$=chr$(0)
    GetTextFace$=left$(a$,instr(a$,chr$(0))-1)
End Function

Sub PatBlt hDC, x, y, w, h, rop
    'fills with the brush; rop: _PATCOPY, _PATINVERT, _BLACKNESS
    CallDLL #gdi32, "PatBlt",_
      hDC as ulong, x as long, y as long, w as long, h as long,_
      rop as ulong, r as boolean
End Sub

Sub StretchBlt hDest, x, y, w, h, hSrc, xs, ys, ws, hs, rop
    'copies a picture in another size; rop: _SRCCOPY ...
    CallDLL #gdi32, "StretchBlt",_
      hDest as ulong, x as long, y as long, w as long, h as long,_
      hSrc as ulong, xs as long, ys as long, ws as long, hs as long,_
      rop as ulong, r as boolean
End Sub

Sub BitBlt hDest, x, y, w, h, hSrc, xs, ys, rop
    'copies a picture; rop: _SRCCOPY, _SRCAND, _SRCPAINT ...
    CallDLL #gdi32, "BitBlt",_
      hDest as ulong, x as long, y as long, w as long, h as long,_
      hSrc as ulong, xs as long, ys as long, rop as ulong, r as boolean
End Sub

Function SetStretchBltMode(hDC, mode)
    'how a picture gets smaller: 1=and, 2=or, 3=leave pixels out,
    '4=mean color; returns the mode before
    CallDLL #gdi32, "SetStretchBltMode",_
      hDC as ulong, mode as long, SetStretchBltMode as long
End Function

Function GetStretchBltMode(hDC)
    CallDLL #gdi32, "GetStretchBltMode", hDC as ulong, GetStretchBltMode as long
End Function

Function SelectObject(hDC, hObject)
    'returns the object before: select it again at the end
    CallDLL #gdi32, "SelectObject",_
      hDC as ulong, hObject as ulong, SelectObject as ulong
End Function

Sub DeleteObject hObject
    'gives a pen, brush, font, bitmap or region back
    CallDLL #gdi32, "DeleteObject", hObject as ulong, r as boolean
End Sub

Function CreateCompatibleBitmap(hDC, w, h)
    CallDLL #gdi32, "CreateCompatibleBitmap",_
      hDC as ulong, w as long, h as long, CreateCompatibleBitmap as ulong
End Function

Function CreateSolidBrush(rgb)
    CallDLL #gdi32, "CreateSolidBrush", rgb as ulong, CreateSolidBrush as ulong
End Function

Function CreateHatchBrush(hatch, rgb)
    'hatch: 0=- 1=| 2=\ 3=/ 4=+ 5=x
    CallDLL #gdi32, "CreateHatchBrush",_
      hatch as long, rgb as ulong, CreateHatchBrush as ulong
End Function

Function CreatePen(style, w, rgb)
    'style: 0=solid 1=dash 2=dot 5=none
    CallDLL #gdi32, "CreatePen",_
      style as long, w as long, rgb as ulong, CreatePen as ulong
End Function

Function SetBkMode(hDC, mode)
    'mode: 1=text lets the ground show, 2=text has its own
    CallDLL #gdi32, "SetBkMode", hDC as ulong, mode as long, SetBkMode as long
End Function

Sub SetPixel hDC, x, y, rgb
    CallDLL #gdi32, "SetPixel",_
      hDC as ulong, x as long, y as long, rgb as ulong, r as ulong
End Sub

Function GetPixel(hDC, x, y)
    'color of a pixel, 4294967295 for one that is outside
    CallDLL #gdi32, "GetPixel",_
      hDC as ulong, x as long, y as long, GetPixel as ulong
End Function

Function GetRed(rgb)
    'red of a color, 0 to 255
    GetRed=rgb and 255
End Function

Function GetGreen(rgb)
    GetGreen=int(rgb/256) and 255
End Function

Function GetBlue(rgb)
    GetBlue=int(rgb/65536) and 255
End Function

Function CreateEllipticRgn(x1, y1, x2, y2)
    'region like an ellipse; see DeleteObject
    CallDLL #gdi32, "CreateEllipticRgn",_
      x1 as long, y1 as long, x2 as long, y2 as long,_
      CreateEllipticRgn as ulong
End Function

Function CreateRectRgn(x1, y1, x2, y2)
    CallDLL #gdi32, "CreateRectRgn",_
      x1 as long, y1 as long, x2 as long, y2 as long, CreateRectRgn as ulong
End Function

Function CreateRoundRectRgn(x1, y1, x2, y2, w, h)
    'region like a rectangle with round corners
    CallDLL #gdi32, "CreateRoundRectRgn",_
      x1 as long, y1 as long, x2 as long, y2 as long, w as long, h as long,_
      CreateRoundRectRgn as ulong
End Function

Sub FillRegn hDC, hRgn, hBrush
    CallDLL #gdi32, "FillRgn",_
      hDC as ulong, hRgn as ulong, hBrush as ulong, r as boolean
End Sub

Sub FrameRegn hDC, hRgn, hBrush, w, h
    'draws the edge of a region, w wide and h high
    CallDLL #gdi32, "FrameRgn",_
      hDC as ulong, hRgn as ulong, hBrush as ulong, w as long, h as long,_
      r as boolean
End Sub

Sub PaintRegn hDC, hRgn
    'fills a region with the brush of hDC
    CallDLL #gdi32, "PaintRgn", hDC as ulong, hRgn as ulong, r as boolean
End Sub

Sub InvertRegn hDC, hRgn
    CallDLL #gdi32, "InvertRgn", hDC as ulong, hRgn as ulong, r as boolean
End Sub

Function PtInRegn(hRgn, x, y)
    'not 0 if the point lies in the region
    CallDLL #gdi32, "PtInRegion",_
      hRgn as ulong, x as long, y as long, PtInRegn as boolean
End Function

Function CreateFont(fontname$, fontheight)
    'a height below 0 is that of the letters alone
    CallDLL #gdi32, "CreateFontA",_
      fontheight as long, 0 as long, 0 as long, 0 as long, 0 as long,_
      0 as ulong, 0 as ulong, 0 as ulong, 1 as ulong,_
      0 as ulong, 0 as ulong, 0 as ulong, 0 as ulong, fontname$ as ptr,_
      CreateFont as ulong
End Function

Function BitmapWidth(hBitmap)
    'width in pixels; see hbmp() for the handle
    struct bmp,_
      kind as long, width as long, height as long, rowBytes as long,_
      planes as word, bits as word, address as ulong
    n=len(bmp.struct)
    CallDLL #gdi32, "GetObjectA",_
      hBitmap as ulong, n as long, bmp as struct, r as long
    BitmapWidth=bmp.width.struct
End Function

Function BitmapHeight(hBitmap)
    struct bmp,_
      kind as long, width as long, height as long, rowBytes as long,_
      planes as word, bits as word, address as ulong
    n=len(bmp.struct)
    CallDLL #gdi32, "GetObjectA",_
      hBitmap as ulong, n as long, bmp as struct, r as long
    BitmapHeight=bmp.height.struct
End Function

Function GetCurrentPositionX(hDC)
    'where the pen is
    struct pen, x as long, y as long
    CallDLL #gdi32, "GetCurrentPositionEx",_
      hDC as ulong, pen as struct, r as boolean
    GetCurrentPositionX=pen.x.struct
End Function

Function GetCurrentPositionY(hDC)
    'where the pen is
    struct pen, x as long, y as long
    CallDLL #gdi32, "GetCurrentPositionEx",_
      hDC as ulong, pen as struct, r as boolean
    GetCurrentPositionY=pen.y.struct
End Function

Function GetStockObject(n)
    'n: 0=white brush 4=black 5=no brush 7=black pen 8=no pen
    CallDLL #gdi32, "GetStockObject", n as long, GetStockObject as ulong
End Function

Function SetBkColor(hDC, rgb)
    'color behind texts, returns the one before
    CallDLL #gdi32, "SetBkColor",_
      hDC as ulong, rgb as ulong, SetBkColor as ulong
End Function

Function GetBkColor(hDC)
    CallDLL #gdi32, "GetBkColor", hDC as ulong, GetBkColor as ulong
End Function

Function GetBkMode(hDC)
    CallDLL #gdi32, "GetBkMode", hDC as ulong, GetBkMode as long
End Function

Sub PolyLine hDC, points$
    'points$: x and y of each point, with blanks between them,
    'like call PolyLine hDC, "10 10 80 40 10 70"
    while word$(points$,n+1)<>""
        n=n+1 : v=int(val(word$(points$,n)))
        if v<0 then v=v+4294967296
        for i=1 to 4  'bytes, the lowest first
            p$=p$+chr$(v-int(v/256)*256)
            v=int(v/256)
        next i
    wend
    p$=p$+chr$(0) : n=int(n/2)
    CallDLL #gdi32, "Polyline", hDC as ulong, p$ as ptr, n as long, r as boolean
End Sub

Sub Polygon hDC, points$
    'like PolyLine, but closed and filled
    while word$(points$,n+1)<>""
        n=n+1 : v=int(val(word$(points$,n)))
        if v<0 then v=v+4294967296
        for i=1 to 4  'bytes, the lowest first
            p$=p$+chr$(v-int(v/256)*256)
            v=int(v/256)
        next i
    wend
    p$=p$+chr$(0) : n=int(n/2)
    CallDLL #gdi32, "Polygon", hDC as ulong, p$ as ptr, n as long, r as boolean
End Sub

Sub PolyPolygon hDC, points$, counts$
    'counts$: how many points each polygon has, like "3 4"
    for pass=1 to 2
        a$=points$
        if pass=2 then a$=counts$
        p$="" : n=0
        while word$(a$,n+1)<>""
            n=n+1 : v=int(val(word$(a$,n)))
            if v<0 then v=v+4294967296
            for i=1 to 4  'bytes, the lowest first
                p$=p$+chr$(v-int(v/256)*256)
                v=int(v/256)
            next i
        wend
        p$=p$+chr$(0)
        if pass=1 then xy$=p$
    next pass
    CallDLL #gdi32, "PolyPolygon",_
      hDC as ulong, xy$ as ptr, p$ as ptr, n as long, r as boolean
End Sub

Function SetPolyFillMode(hDC, mode)
    'mode: 1=alternate, 2=fill all; returns the mode before
    CallDLL #gdi32, "SetPolyFillMode",_
      hDC as ulong, mode as long, SetPolyFillMode as long
End Function

Function GetPolyFillMode(hDC)
    CallDLL #gdi32, "GetPolyFillMode", hDC as ulong, GetPolyFillMode as long
End Function

Function SaveDC(hDC)
    'keeps pen, brush, font and modes for RestoreDC
    CallDLL #gdi32, "SaveDC", hDC as ulong, SaveDC as long
End Function

Sub RestoreDC hDC, saved
    'saved: what SaveDC has returned, or -1 for the last one
    CallDLL #gdi32, "RestoreDC", hDC as ulong, saved as long, r as boolean
End Sub

'*******************************
'ADVAPI32.DLL STUFF
'*******************************

Function GetUserName$()
    a$=space$(256)+chr$(0)
    struct count, n as ulong
    count.n.struct=257
    open "advapi32" for dll as #ad
    CallDLL #ad, "GetUserNameA", a$ as ptr, count as struct, r as boolean
    close #ad
    if r=0 then a$=chr$(0)
    GetUserName$=left$(a$,instr(a$,chr$(0))-1)
End Function

'*******************************
'HARD-COPY PRINTING
'*******************************

Function Horzres(hDC)
    'width of the page in pixels
    CallDLL #gdi32, "GetDeviceCaps", hDC as ulong, 8 as long, Horzres as long
End Function

Function Vertres(hDC)
    'height of the page in pixels
    CallDLL #gdi32, "GetDeviceCaps", hDC as ulong, 10 as long, Vertres as long
End Function

Function Logpixelsx(hDC)
    'pixels to the inch, across
    CallDLL #gdi32, "GetDeviceCaps",_
      hDC as ulong, 88 as long, Logpixelsx as long
End Function

Function Logpixelsy(hDC)
    'pixels to the inch, down
    CallDLL #gdi32, "GetDeviceCaps",_
      hDC as ulong, 90 as long, Logpixelsy as long
End Function

Function PhysicalWidth(hDC)
    'width of the paper in pixels
    CallDLL #gdi32, "GetDeviceCaps",_
      hDC as ulong, 110 as long, PhysicalWidth as long
End Function

Function PhysicalHeight(hDC)
    'height of the paper in pixels
    CallDLL #gdi32, "GetDeviceCaps",_
      hDC as ulong, 111 as long, PhysicalHeight as long
End Function

Function PhysicalOffsetx(hDC)
    'pixels from the edge of the paper to the page, left
    CallDLL #gdi32, "GetDeviceCaps",_
      hDC as ulong, 112 as long, PhysicalOffsetx as long
End Function

Function PhysicalOffsety(hDC)
    'pixels from the edge of the paper to the page, top
    CallDLL #gdi32, "GetDeviceCaps",_
      hDC as ulong, 113 as long, PhysicalOffsety as long
End Function

Function EndDoc(hDC)
    'above 0 if it worked, as the next three
    CallDLL #gdi32, "EndDoc", hDC as ulong, EndDoc as long
End Function

Function EndPage(hDC)
    CallDLL #gdi32, "EndPage", hDC as ulong, EndPage as long
End Function

Function StartPage(hDC)
    CallDLL #gdi32, "StartPage", hDC as ulong, StartPage as long
End Function

Function StartDoc(hDC, title$)
    struct docinfo,_
      size as long, title$ as ptr, file as ulong, kind as ulong,_
      flags as ulong
    docinfo.size.struct=len(docinfo.struct)
    docinfo.title$.struct=title$
    CallDLL #gdi32, "StartDocA",_
      hDC as ulong, docinfo as struct, StartDoc as long
End Function

Function PrinterDialogDC(hW)
    'the user chooses a printer; 0 if not
    'packed record of 66 bytes: words go in pairs
    struct dlg,_
      size as ulong, owner as ulong, mode as ulong, names as ulong,_
      hDC as ulong, flags as ulong, pages as ulong, range as ulong,_
      copies as ulong, z1 as ulong, z2 as ulong, z3 as ulong, z4 as ulong,_
      z5 as ulong, z6 as ulong, z7 as ulong, z8 as word
    dlg.size.struct=66
    dlg.owner.struct=hW
    dlg.mode.struct=0 : dlg.names.struct=0
    dlg.hDC.struct=0
    dlg.flags.struct=262412
    dlg.copies.struct=1
    CallDLL #comdlg32, "PrintDlgA", dlg as struct, ok as boolean
    if ok then
        h=dlg.mode.struct
        CallDLL #kernel32, "GlobalFree", h as ulong, r as ulong
        h=dlg.names.struct
        CallDLL #kernel32, "GlobalFree", h as ulong, r as ulong
    end if
    PrinterDialogDC=dlg.hDC.struct
End Function

Function PrinterDefaultDC()
    '0 if there is no printer
    a$=space$(255)+chr$(0)
    CallDLL #kernel32, "GetProfileStringA",_
      "windows" as ptr, "device" as ptr,_
      "" as ptr, a$ as ptr, 256 as ulong, n as ulong
    a$=left$(a$,n)
    printer$=word$(a$,1,",")
    driver$=word$(a$,2,",")
    if n>0 then
        CallDLL #gdi32, "CreateDCA",_
          driver$ as ptr, printer$ as ptr, 0 as ulong, 0 as ulong,_
          hDC as ulong
    end if
    PrinterDefaultDC=hDC
End Function
