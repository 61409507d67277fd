a(3) = 5: print a(3); a(10)
dim m(2, 3): m(1, 2) = 7: m(2.9, 3.9) = 8
print m(1, 2); m(2, 3); m(0, 0)
dim t$(2): t$(1) = "one": print t$(1); t$(2); "|"
redim t$(5): print t$(1); "|": t$(5) = "five": print t$(5)
a = 1: a$ = "x": a$(0) = "y": print a; a$; a(3); a$(0)
n = 20000: dim big(n): for i = 0 to n: big(i) = i: next: print big(n)
