a =
a = 1 +
a = (1 + 2
a = 1 + 2)
a = * 2
a = "open
a = "x"
a$ = 5
a = 1 + "x" : b = 2
a$ = "x" + 1
a = "x" < 1
a = -"x"
a = not "x"
a = b$ * 2
a = left$("abc")
a$ = left$("abc")
a$ = left$(1, 2)
a = sqr()
a = sqr(1, 2)
a = len(5)
a = eof(1)
a = #h
a = b() + 1
a = b(1, 2, 3)
a = b("x")
a = 1e999
a = 1 2
a = b c
a = then
a = print
a = tab(3)
a = [label]
a = x & y
a = @
a = 5 = "x"
if "x" then b = 1
while a$ : wend
for i = "a" to 2 : next
for a$ = 1 to 2 : next
for a(1) = 1 to 2 : next
a = _NO_SUCH_CONSTANT
a = date$(1, 2)
a = date$()
print a b
print "a" "b"
a = f(,1)
a = .
print "a" + tab(3)
print tab(1) + 1
if tab(2) then a = 1
