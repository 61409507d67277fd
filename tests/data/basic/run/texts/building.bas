for i = 1 to 26: a$ = a$ + chr$(96 + i): next
print a$
b$ = a$
a$ = a$ + "!"
b$ = b$ + "?"
print a$: print b$
c$ = left$(a$, 3): c$ = c$ + "XYZ": print c$: print left$(a$, 6)
a$ = a$ + a$: print len(a$)
