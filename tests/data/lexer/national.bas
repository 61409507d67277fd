größe = 1
print "äöü" ' été
printé éprint
#händel, 5ä [übung] ação$
remé x
rem é
