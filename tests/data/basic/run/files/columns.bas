' Commas and tab count columns in files as in the console, and a written line is seen at once.
open "a.txt" for output as #w
print #w, "a", "12345678901234", "b"
print #w, "x"; tab(5); "y"; tab(3); "z"
open "a.txt" for input as #r
while eof(#r) = 0
line input #r, a$
print "<"; a$; ">"
wend
print #w, "later"
line input #r, a$
print a$; " "; eof(#r)
