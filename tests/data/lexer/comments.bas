' from an apostrophe to the end
print 1 ' behind a statement
rem at the start
   REM behind blanks, "quotes" and [labels] too
cls : rem behind a colon
if a then rem behind then
if a then b else Rem behind else
print rem ' rem where no statement starts
remark = rem$ + a.rem
rem
rem
'
print "it's" ; 'not in a string
: rem behind a colon at the start
reM	behind a tab
rem'
[label] rem not where a label stands
