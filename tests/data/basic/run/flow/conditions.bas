for i = 1 to 4
  if i = 1 then print "one" else if i = 2 then print "two" else print "many"
next
x = 3
if x > 2 then
  print "above"
  if x = 3 then
    print "three"
  end if
elseif x = 2 then
  print "two"
else
  print "below"
end if
if x = 1 then
  print "wrong"
elseif x = 3 then print "elseif"
else
  print "wrong"
endif
if x then print "true"
if "a" = "b" then print "wrong" else print "else"
if x = 3 then 100
print "skipped"
100 print "hundred"
if x <> 3 then [no] else [yes]
[no]
print "wrong"
[yes]
print "end"
