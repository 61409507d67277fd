a = total_
+ 1 + _
    2 + total_ _ 'with a comment
- 3 + a_ + 1
print "text _"; _
      "more" 'comment _
if a _
then b = 1 _
else c = 1
c = _WS_VISIBLE _
or _WS_CHILD
call s a,_
b_
,c
rem a comment does not go on _
sub s a, b, c
end sub _
