print "before"
a = 0
print 5 / _
  a
print "after"
