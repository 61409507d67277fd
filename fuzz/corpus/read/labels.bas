[it's one] goto [two words]: [Sub.1$!?]
[two words] [Two Words] print "x"
010 goto 20
  20 print "x" : goto 10
[if] goto [if] : if a then [if] else [it's one]
30
sub a
[if] goto [if]
end sub
