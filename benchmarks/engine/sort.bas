dim a$(1000000)
x = 42
for i = 1 to 1000000
 x = (x * 16807) mod 2147483647
 a$(i) = str$(x)
next
sort a$(), 1, 1000000
print a$(1); " "; a$(1000000)
