'** Created by Orchard Bench - 2026-11-21
'** Address Book

    DIM List1$(10)
    List1$(1) = "First Item"
    List1$(2) = "Second Item"
    DIM Combo1$(10)
    Combo1$(1) = "First Item"
    Combo1$(2) = "Second Item"

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
    WindowWidth = 550 : WindowHeight = 395
    UpperLeftX = INT((DisplayWidth-WindowWidth)/2)
    UpperLeftY = INT((DisplayHeight-WindowHeight)/2)

[ControlSetup]
Menu        #book, "&File", "&New", [new], "&Open...", [open], "&Save", [save], | , "E&xit", [quit]
Menu        #book, "&Edit", "&Copy address", [copyAddress], "&Find...", [find], "Find &next", [findNext]
Menu        #book, "&Help", "&Contents", [contents], | , "&About...", [about]
statictext  #book.groupLabel, "Group:", 15, 15, 50, 20
statictext  #book.nameLabel, "Name:", 260, 15, 70, 20
statictext  #book.streetLabel, "Street:", 260, 50, 70, 20
statictext  #book.townLabel, "Town:", 260, 85, 70, 20
statictext  #book.postcodeLabel, "Postcode:", 260, 120, 70, 20
statictext  #book.telephoneLabel, "Telephone:", 260, 155, 70, 20
statictext  #book.emailLabel, "E-mail:", 260, 190, 70, 20
button      #book.add, "&Add",[addPerson],UL, 260, 230, 80, 30
button      #book.change, "&Change",[changePerson],UL, 350, 230, 80, 30
button      #book.delete, "&Delete",[deletePerson],UL, 440, 230, 80, 30
button      #book.close, "C&lose",[quit],UL, 440, 290, 80, 30
textbox     #book.name, 335, 10, 185, 25
textbox     #book.street, 335, 45, 185, 25
textbox     #book.town, 335, 80, 185, 25
textbox     #book.postcode, 335, 115, 185, 25
textbox     #book.telephone, 335, 150, 185, 25
textbox     #book.email, 335, 185, 185, 25
listbox     #book.people, List1$(),[choosePerson], 15, 50, 225, 270
combobox    #book.group,Combo1$(),[chooseGroup], 70, 10, 170, 300

Open "Address Book" for Window as #book
    #book "trapclose [quit]"
    #book "font ms_sans_serif 10"

[loop]
    Wait

[quit]
    close #book : END

