open "lines.tmp" for output as #f
for i = 1 to 1000000
 print #f, "line "; i
next
close #f
open "lines.tmp" for input as #f
while eof(#f) = 0
 line input #f, a$
 n = n + len(a$)
wend
close #f
print n
kill "lines.tmp"
