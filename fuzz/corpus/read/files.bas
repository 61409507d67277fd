open "a.txt" for input as #1 : line input #1, a$ : input #1, a, b$(2) : close #1
open a$ + ".dat" for random as #f len = 40
field #f, 20 as n$, 8 as v, 12 as x$(1)
put #f, 1 : get #f, 2 : gettrim #f, a + 1
open "b" for binary as #b : seek #b, 10 : print loc(#b); lof(#b); eof(#b); txcount(#b)
print #f : print #f, : print #f, "a", 1; : #f "b"
a$ = input$(#f, lof(#f)) + input$(3) + inputto$(#f, ",")
input a : input "How many"; a, b : input "x", a$ : input p$; a$ : input "a" + b$; c$
line input a$ : line input "Name: "; a$
print : print a, b; : print "x"; tab(20); 3, ,
name a$ as b$ : kill "x" : r = mkdir("d") + rmdir("d") + remdir("e") : files "c:\", "*.*", info$()
dim a(10), b$(5, n + 1) : redim a(20) : sort b$(), 0, 5, 1 : sort a(), 5, 0
