input "name? "; n$
print "hello "; n$
input a, b$
print a + 1; b$
line input "all: "; t$
print t$
input x, y
print x + y
c$ = input$(2)
print "<"; c$; ">"
