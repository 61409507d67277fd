nomainwin
WindowWidth = 640 : ForegroundColor$ = "black"
menu #main, "&File", "&Open", [open], | , "E&xit", [quit]
menu #main, "&Edit"
button #main.ok, "OK", [ok], UL, 10, 10, 80, 25
button #main.no, "No", clicked, LR, 10, 10
bmpbutton #main.b, "x.bmp", [ok], UL, 1, 2
checkbox #main.c, "C", [ok], [missing], 1, 2, 3, 4
radiobutton #main.r, "R", [ok], clicked, 1, 2, 3, 4
listbox #main.l, items$(), [ok], 1, 2, 3, 4
combobox #main.cb, items$(), clicked, 1, 2, 3, 4
textbox #main.t, 1, 2, 3, 4 : texteditor #main.te, 1, 2, 3, 4
statictext #main.s, "text", 1, 2, 3, 4 : groupbox #main.g, "text", 1, 2, 3, 4
graphicbox #main.gr, 1, 2, w * 2, h - 1
stylebits #main.t, _ES_PASSWORD or 1, 0, 0, 0
open "Title" for Window_nf as #main
#main "trapclose [quit]"
#main, "font courier_new 9"
print #main.gr, "down; line "; x; " "; y
#main.t
h$ = "#main.t" : #h$ "text" : print #h$, a$; : b = hwnd(#h$)
popupmenu "&One", [ok], |, "&Two", clicked
timer 500, [tick] : timer 100, tick : timer 0
scan
wait
[open]
[ok] notice "a" + chr$(13) + "b"
confirm "Sure?"; answer$ : prompt "Name"; list$(2)
filedialog "Open", "*.txt", f$ : colordialog c$, c$ : fontdialog c$, c$
cursor hourglass : cursor "arrow" : cursor shape$ : playwave "x.wav", loop : playwave w$, w$
playmidi "x.mid", n : stopmidi : run "x.exe", showmode : run r$
loadbmp "a", "a.bmp" : loadbmp "b", hBmp : bmpsave "a", "b.bmp" : unloadbmp "a" : b = hbmp("a")
locate 1, 2 : locate 3 4 : mainwin 80 25 : mainwin 80, 25 : titlebar "x" : cls : beep
printerdialog : lprint "x"; 1, : dump : readjoystick 1 : trace 2 : randomize .5
maphandle #main, "#other" : out 888, 1 : b = inp(888) : oncomerror [ok]
[tick] close #main : end
[quit] close #main : end
sub clicked handle$
end sub
sub tick
end sub
