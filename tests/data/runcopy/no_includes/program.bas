print 1
'include a.bas
