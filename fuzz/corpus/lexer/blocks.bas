' comment
rem more
if a then 'x
  print "a(b)"; #h.x, [label]
end if
