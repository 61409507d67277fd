'** Created by Orchard Bench - 2026-11-21
'** Drawing


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
button      #draw.undo, "&Undo",[undo],UL, 465, 260, 110, 30
button      #draw.clear, "&Clear",[clear],UL, 465, 300, 110, 30
button      #draw.saveAs, "&Save as...",[saveAs],UL, 465, 340, 110, 30
radiobutton #draw.thin, "Thin",[thinPen],[loop], 465, 150, 110, 25
radiobutton #draw.medium, "Medium",[mediumPen],[loop], 465, 180, 110, 25
radiobutton #draw.thick, "Thick",[thickPen],[loop], 465, 210, 110, 25

Open "Drawing" for Graphics_nsb as #draw
    #draw "trapclose [quit]"
    #draw "font arial 9"

[loop]
    Wait

[quit]
    close #draw : END

