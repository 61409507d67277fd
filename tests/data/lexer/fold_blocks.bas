' each opener and its closer
if a then
    if b then ' with a comment
        print 1
    end if
end if
for i = 1 to 3
    print i
next i
while a
    wait
wend
do
    scan
loop
select case a
    case 1
        print 1
end select
sub Show a
    print a
end sub
function Twice(a)
    Twice = 2 * a
end function
IF a THEN   
END   IF
  print 1
