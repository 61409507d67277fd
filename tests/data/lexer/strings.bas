print "closed"
print "open to the end
print ""
print """quoted"""
print "" "rem ' [x] #y 12"
a$="x"+"y":b$="
"
