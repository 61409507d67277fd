for i = 1 to 20000000
 if i mod 7 = 0 then
  a$ = a$ + " "
 else
  a$ = a$ + "x"
 end if
next
i = 1
do
 i = instr(a$, " ", i)
 if i = 0 then exit do
 c = c + 1: i = i + 1
loop
print len(a$); " "; c
