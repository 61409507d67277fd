' Places in a binary file count from 0, and lines get no ends.
open "a.bin" for binary as #b
print #b, "0123456789"
print lof(#b); " "; loc(#b); " "; eof(#b)
seek #b, 3
print input$(#b, 2); " "; loc(#b)
print #b, "ab";
seek #b, 0
print input$(#b, 99); " "; eof(#b)
seek #b, 12
print #b, "z"
close #b
open "A.BIN" for input as #b
print lof(#b)
print inputto$(#b, "a"); " "; inputto$(#b, "89"); " "; len(inputto$(#b, "none")); " "; eof(#b)
print input$(#b, 1)
