open "test.rnd" for random as #r len = 12
field #r, 8 as name$, 4 as age
name$ = "Ann": age = 30: put #r, 1
name$ = "Bartholomew": age = 7: put #r, 3
get #r, 1: print name$; "|"; age
gettrim #r, 1: print name$; "|"
get #r, 3: print name$; "|"; age
print lof(#r)
close #r: kill "test.rnd"
