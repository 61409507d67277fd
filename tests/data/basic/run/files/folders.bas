' Folders and names of files: what is there in other capitals is found, and nothing is written over.
print mkdir("Data"); " "; mkdir("data") > 0
open "Data\First.txt" for output as #f
print #f, "one"
close #f
open "data\second.txt" for output as #f
close #f
name "DATA\FIRST.TXT" as "data\Third.txt"
for trial = 1 to 7
call try trial
next
print rmdir("data") > 0
files "data", "*.TXT", info$()
print info$(0, 0); " "; info$(0, 1); " "; info$(1, 0); " "; info$(1, 1); " "; info$(2, 0); " "; info$(2, 1)
files ".", "", info$()
print info$(0, 0); " "; info$(0, 1); " "; info$(1, 0)
kill "data/SECOND.txt"
kill "data/third.TXT"
print rmdir("Data"); " "; rmdir("Data") > 0
end

sub try trial
on error goto [failed]
select case trial
case 1: name "data\third.txt" as "data\second.txt"
case 2: kill "data"
case 3: open "data" for output as #f
case 4: open "missing.txt" for input as #f
case 5: open "missing\a.txt" for output as #f
case 6: open "" for input as #f
case 7: name "data" as "other"
end select
print "no error"
exit sub
[failed]
print Err; " "; Err$
end sub
