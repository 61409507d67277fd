read a, b$, c$
print a; b$; c$; "|"
restore [second]
read n: print n
restore
read n: print n
data 12, plain text , "quoted, with comma"
[second]
data 34
read x$, y$
print x$; y$
