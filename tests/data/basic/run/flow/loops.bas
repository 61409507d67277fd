for i = 1 to 3: print i;: next i: print " "; i
for i = 3 to 1 step -1: print i;: next: print " "; i
for i = 0 to 1 step 0.25: print i; " ";: next: print
for i = 5 to 1: print "never": next: print i
n = 3: for n = 1 to n: print n;: next: print
s = -2: for i = 4 to 0 step s: print i;: next: print
while a < 3: a = a + 1: print a;: wend: print
do: b = b + 1: if b = 3 then exit do
loop: print b
do while b < 5: b = b + 1: loop: print b
do until b = 7: b = b + 1: loop: print b
do: b = b - 1: loop while b > 5: print b
do: b = b - 1: loop until b < 3: print b
for i = 1 to 10: if i = 4 then exit for
next: print i
while 1: c = c + 1: if c = 6 then exit while
wend: print c
for i = 1 to 2: for j = 1 to 2: print i; j; " ";: next j: next i: print
