'remove this line to stop
'execution of sample program
GoSub [demo]
'
'places and sizes are pixels of the printer,
'colors are red+green*256+blue*65536
'a name with parentheses is a function: n=Horzres(hDC)
'the others are subs: call Rectangle hDC, 0, 0, 300, 200
'
'Horzres(hDC): width of the page
'Vertres(hDC): height of the page
'Logpixelsx(hDC): pixels to the inch, across
'Logpixelsy(hDC): pixels to the inch, down
'PhysicalWidth(hDC): width of the paper
'PhysicalHeight(hDC): height of the paper
'PhysicalOffsetx(hDC): left margin
'PhysicalOffsety(hDC): top margin
'EndDoc(hDC): ends the print job
'EndPage(hDC): ends the page
'StartPage(hDC): starts a page
'StartDoc(hDC, title$): starts a print job
'PrinterDialogDC(hW): asks for a printer
'PrinterDefaultDC(): the usual printer
'DeleteDC hDC: after the last job
'Arc hDC, x1, y1, x2, y2, xs, ys, xe, ye: curve
'Chord hDC, x1, y1, x2, y2, xs, ys, xe, ye: ellipse, cut off
'Pie hDC, x1, y1, x2, y2, xs, ys, xe, ye: slice of an ellipse
'Rectangle hDC, x1, y1, x2, y2: rectangle
'RoundRect hDC, x1, y1, x2, y2, w, h: with round corners
'Ellipse hDC, x1, y1, x2, y2: ellipse or circle
'DrawLine hDC, x1, y1, x2, y2: line
'TextOut hDC, x, y, txt$: a line of text
'SetTextColor(hDC, rgb): color of texts
'SetBkMode(hDC, mode): what is behind texts
'SelectObject(hDC, hObject): pen, brush or font
'DeleteObject hObject: pen, brush or font
'CreateSolidBrush(rgb): full color
'CreateHatchBrush(hatch, rgb): lines
'CreatePen(style, w, rgb): for lines
'SetPixel hDC, x, y, rgb: one dot
'CreateFont(fontname$, fontheight): for texts
'GetCurrentPositionX(hDC): end of the last line
'GetCurrentPositionY(hDC): end of the last line
'GetStockObject(n): ready pens, brushes
End

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

Function SetTextColor(hDC, rgb)
    'rgb=red+green*256+blue*65536, returns the color before
    CallDLL #gdi32, "SetTextColor",_
      hDC as ulong, rgb as ulong, SetTextColor as ulong
End Function

Function SetBkMode(hDC, mode)
    'mode: 1=text lets the ground show, 2=text has its own
    CallDLL #gdi32, "SetBkMode", hDC as ulong, mode as long, SetBkMode as long
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

Sub SetPixel hDC, x, y, rgb
    CallDLL #gdi32, "SetPixel",_
      hDC as ulong, x as long, y as long, rgb as ulong, r as ulong
End Sub

Function CreateFont(fontname$, fontheight)
    'a height below 0 is that of the letters alone
    CallDLL #gdi32, "CreateFontA",_
      fontheight as long, 0 as long, 0 as long, 0 as long, 0 as long,_
      0 as ulong, 0 as ulong, 0 as ulong, 1 as ulong,_
      0 as ulong, 0 as ulong, 0 as ulong, 0 as ulong, fontname$ as ptr,_
      CreateFont as ulong
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

[demo]
    'prints a frame with a line of text in it
    hDC=PrinterDialogDC(0)
    if hDC=0 then return
    if StartDoc(hDC, "Sample page")<1 then
        call DeleteDC hDC
        return
    end if
    r=StartPage(hDC)

    'an inch in pixels, across and down
    dpiX=Logpixelsx(hDC)
    dpiY=Logpixelsy(hDC)

    'a font of 24 points, a blue pen, a yellow brush
    hFont=CreateFont("arial", int(dpiY/3))
    hPen=CreatePen(0, int(dpiX/30), 16711680)
    hBrush=CreateSolidBrush(65535)
    oldFont=SelectObject(hDC, hFont)
    oldPen=SelectObject(hDC, hPen)
    oldBrush=SelectObject(hDC, hBrush)

    'the frame is five inches wide and two inches high
    round=int(dpiX/2)
    call RoundRect hDC, dpiX, dpiY, dpiX*6, dpiY*3, round, round
    r=SetBkMode(hDC, 1)
    r=SetTextColor(hDC, 255)
    x=int(dpiX*1.5)
    y=int(dpiY*1.8)
    call TextOut hDC, x, y, "Printed with Orchard BASIC"

    r=EndPage(hDC)
    r=EndDoc(hDC)

    'what is selected cannot be deleted
    r=SelectObject(hDC, oldFont)
    r=SelectObject(hDC, oldPen)
    r=SelectObject(hDC, oldBrush)
    call DeleteObject hFont
    call DeleteObject hPen
    call DeleteObject hBrush
    call DeleteDC hDC
    return
