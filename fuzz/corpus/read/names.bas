total = 1 : Total = 2 : TOTAL = total + Total
TTS.ALWAYSTIP = 1 : a.b.c$ = "x" : a_1 = 2 : x2y3 = 4
name = 5 : name$ = "x" : line$ = "y" : print name; name$; line$
print = name : timer = print + timer
let next = 3 : let b(2) = next
hBmp = 1 : hWnd = 2 : size = 3 : date$ = "today"
a = 1 : a$ = "x" : a(1) = 2 : a$(1) = "y"
[a] close #a
struct a, a as long, a$ as ptr
a.a.struct = a : a.a$.struct = a$
windowwidth = 300 : WINDOWHEIGHT = WindowWidth : v$ = version$
for line = 1 to 3 : print line : next line
