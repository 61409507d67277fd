print "café"; a$ ' été
	b = 1:c = 2[été] goto [été]

