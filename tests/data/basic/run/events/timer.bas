timer 100, [tick]
[again]
wait
[tick]
n = n + 1: print "tick "; n
if n < 3 then [again]
timer 50, count
wait
sub count
  global_count = 1
  print "sub"
  times(0) = times(0) + 1
  if times(0) = 2 then timer 0
end sub
