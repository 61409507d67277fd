next
end if
wend : for i = 1 to 2
for i = 1 to 2
next : next
end sub
for : for : next
    print 1

	
next
