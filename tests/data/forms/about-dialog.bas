'** Created by Orchard Bench - 2026-11-21
'** About Address Book

    True = 1 : False = 0

[InitColors]
    'Please use default colors when possible.
    'Use the following color statements only if necessary in the program.
    'ForegroundColor$ = "Black"
    'BackgroundColor$ = "Buttonface"
    'TexteditorColor$ = "White"
    'TextboxColor$    = "White"
    'ComboboxColor$   = "White"
    'ListboxColor$    = "White"

[WindowSetup]
    NOMAINWIN
    WindowWidth = 360 : WindowHeight = 240
    UpperLeftX = INT((DisplayWidth-WindowWidth)/2)
    UpperLeftY = INT((DisplayHeight-WindowHeight)/2)

[ControlSetup]
statictext  #about.product, "Address Book 1.2", 15, 15, 325, 20
statictext  #about.purpose, "Keeps the people you write to.", 15, 40, 325, 20
statictext  #about.ownerLabel, "This copy belongs to:", 15, 75, 130, 20
button      #about.ok, "&OK", [acceptAbout], UL, 170, 165, 80, 30
button      #about.cancel, "Cancel", [quit], UL, 260, 165, 80, 30
textbox     #about.owner, 150, 70, 190, 25
checkbox    #about.atStart, "Show this window at the start",[atStart],[checkbox1.reset], 15, 115, 325, 25

Open "About Address Book" for Dialog_modal as #about
    #about "trapclose [quit]"
    #about "font ms_sans_serif 10"

[loop]
    Wait

[quit]
    close #about : END

[acceptAbout]
    'place code here
    wait

[atStart]
    #about.atStart "value? result$"
    wait

[checkbox1.reset]
    'place code here
    wait

