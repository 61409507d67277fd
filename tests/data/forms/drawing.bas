'** Created by Orchard Bench - 2026-11-21
'** Drawing

    True = 1 : False = 0

[InitColors]
    'Please use default colors when possible.
    'Use the following color statements only if necessary in the program.
    'ForegroundColor$ = "Black"
    'BackgroundColor$ = "Lightgray"
    'TexteditorColor$ = "White"
    'TextboxColor$    = "White"
    'ComboboxColor$   = "White"
    'ListboxColor$    = "White"

[WindowSetup]
    NOMAINWIN
    WindowWidth = 600 : WindowHeight = 445
    UpperLeftX = INT((DisplayWidth-WindowWidth)/2)
    UpperLeftY = INT((DisplayHeight-WindowHeight)/2)

[ControlSetup]
Menu        #draw, "&Picture", "&New", [newPicture], "&Load bitmap...", [loadPicture], "&Print", [printPicture], | , "E&xit", [quit]
graphicbox  #draw.canvas, 15, 10, 435, 360
graphicbox  #draw.black, 465, 35, 30, 30
graphicbox  #draw.red, 505, 35, 30, 30
graphicbox  #draw.yellow, 545, 35, 30, 30
graphicbox  #draw.green, 465, 75, 30, 30
graphicbox  #draw.blue, 505, 75, 30, 30
graphicbox  #draw.pink, 545, 75, 30, 30
statictext  #draw.colourLabel, "Colour", 465, 10, 110, 20
statictext  #draw.penLabel, "Pen", 465, 125, 110, 20
button      #draw.undo, "&Undo", [undo], UL, 465, 260, 110, 30
button      #draw.clear, "&Clear", [clear], UL, 465, 300, 110, 30
button      #draw.saveAs, "&Save as...", [saveAs], UL, 465, 340, 110, 30
radiobutton #draw.thin, "Thin",[thinPen],[loop], 465, 150, 110, 25
radiobutton #draw.medium, "Medium",[mediumPen],[loop], 465, 180, 110, 25
radiobutton #draw.thick, "Thick",[thickPen],[loop], 465, 210, 110, 25

Open "Drawing" for Graphics_nsb as #draw
    #draw "trapclose [quit]"
    #draw "down; fill Lightgray; flush"
    #draw "font arial 9"
    #draw "setfocus; when mouseMove [MouseChange]"
    #draw.canvas "font arial 9"
    #draw.canvas "down; fill White; flush"
    #draw.canvas "setfocus; when mouseMove [MouseChange1]"
    #draw.black "font arial 9"
    #draw.black "down; fill Black; flush"
    #draw.black "setfocus; when mouseMove [MouseChange2]"
    #draw.red "font arial 9"
    #draw.red "down; fill Red; flush"
    #draw.red "setfocus; when mouseMove [MouseChange3]"
    #draw.yellow "font arial 9"
    #draw.yellow "down; fill Yellow; flush"
    #draw.yellow "setfocus; when mouseMove [MouseChange4]"
    #draw.green "font arial 9"
    #draw.green "down; fill Darkgreen; flush"
    #draw.green "setfocus; when mouseMove [MouseChange5]"
    #draw.blue "font arial 9"
    #draw.blue "down; fill Blue; flush"
    #draw.blue "setfocus; when mouseMove [MouseChange6]"
    #draw.pink "font arial 9"
    #draw.pink "down; fill Pink; flush"
    #draw.pink "setfocus; when mouseMove [MouseChange7]"
    #draw.colourLabel "!font arial 9"
    #draw.penLabel "!font arial 9"
    #draw.undo "!font arial 9"
    #draw.clear "!font arial 9"
    #draw.saveAs "!font arial 9"
    #draw.thin "font arial 9"
    #draw.medium "font arial 9"
    #draw.thick "font arial 9"
[loop]
    Wait

[quit]
    close #draw : END

[newPicture]
    'place code here
    Wait

[loadPicture]
    'place code here
    Wait

[printPicture]
    'place code here
    Wait

[MouseChange1]
    'MouseX and MouseY contain mouse coordinates
    wait

[MouseChange2]
    'MouseX and MouseY contain mouse coordinates
    wait

[MouseChange3]
    'MouseX and MouseY contain mouse coordinates
    wait

[MouseChange4]
    'MouseX and MouseY contain mouse coordinates
    wait

[MouseChange5]
    'MouseX and MouseY contain mouse coordinates
    wait

[MouseChange6]
    'MouseX and MouseY contain mouse coordinates
    wait

[MouseChange7]
    'MouseX and MouseY contain mouse coordinates
    wait

[undo]
    'place code here
    wait

[clear]
    'place code here
    wait

[saveAs]
    'place code here
    wait

[thinPen]
    #draw.thin "value? result$"
    wait

[mediumPen]
    #draw.medium "value? result$"
    wait

[thickPen]
    #draw.thick "value? result$"
    wait

[MouseChange]
    'MouseX and MouseY contain mouse coordinates
    wait

