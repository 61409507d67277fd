on error goto [trouble]
print 1 / z
print "next"
call fails
print "end": end
[trouble]
print "error "; Err
z = 4
if Err = 5 then c(1) = 1
resume
sub fails
  if c(1) = 0 then print inner(0)
  print "left"
end sub
function inner(n)
  inner = sqr(n - 1)
end function
