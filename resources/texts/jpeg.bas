'jpeg.bas: shows a picture with the image library jpeg.dll.
'
'Keep jpeg.dll in the folder of your program. It reads .jpg, .bmp, .gif,
'.ico, .emf and .wmf files and makes a bitmap in memory of each. Loadbmp
'takes the handle of that bitmap in place of a file name.
'
'The library has three functions:
'
'  LoadImageFile    hWnd as ulong      handle of a window, or 0
'                   file$ as ptr       name of the picture file
'                   return as ulong    handle of a 24-bit bitmap in memory,
'                                      or 0 when the file cannot be read
'
'  ImageWidth       hBmp as long       handle from LoadImageFile
'                   return as ulong    width of the picture in pixels
'
'  ImageHeight      hBmp as long       handle from LoadImageFile
'                   return as ulong    height of the picture in pixels
'
'The Bitmap Preview of Orchard Bench writes the loadbmp lines for a whole
'list of pictures: put a tick at "Use image-loading DLL." there.

    nomainwin
    open "jpeg.dll" for DLL as #j

    filedialog "Open a picture", "*.jpg;*.bmp;*.gif;*.ico;*.emf;*.wmf", picFile$
    if picFile$ = "" then [done]

    hBmp = LoadImageFile(0, picFile$)
    if hBmp = 0 then
        notice "There is no picture in this file that can be shown."
        goto [done]
    end if
    wide = ImageWidth(hBmp)
    high = ImageHeight(hBmp)
    loadbmp "picture", hBmp

    WindowWidth = max(wide + 40, 300)
    WindowHeight = high + 100
    graphicbox #show.picture, 10, 10, wide + 2, high + 2
    statictext #show.size, "", 10, high + 20, 280, 20

    open "A picture" for window as #show
    #show "trapclose [quit]"
    #show.size "Width: " + str$(wide) + "   Height: " + str$(high)
    #show.picture "down; drawbmp picture 0 0; flush"
    wait

[quit]
    close #show
    unloadbmp "picture"

[done]
    close #j
    end

Function LoadImageFile(hWnd, file$)
    calldll #j, "LoadImageFile",_
    hWnd as ulong, file$ as ptr,_
    LoadImageFile as ulong
    End Function

Function ImageWidth(hBmp)
    calldll #j, "ImageWidth",_
    hBmp as long,_
    ImageWidth as ulong
    End Function

Function ImageHeight(hBmp)
    calldll #j, "ImageHeight",_
    hBmp as long,_
    ImageHeight as ulong
    End Function
