open "test.txt" for output as #f
print #f, "first line"
print #f, 1; ","; 2
#f "third"
close #f
open "test.txt" for append as #f: print #f, "last": close #f
open "test.txt" for input as #f
line input #f, a$: print a$
input #f, x, y: print x + y
while not(eof(#f)): line input #f, a$: print a$: wend
print lof(#f)
close #f
name "test.txt" as "other.txt"
kill "other.txt"
on error goto [gone]
open "test.txt" for input as #f
end
[gone]
print Err
