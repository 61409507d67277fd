for i = 1 to 3
  gosub [show]
next
gosub 200
goto [over]
[show]
  print "i is "; i
  if i = 2 then return
  gosub [inner]
return
[inner]
  print "inner"
return
200 print "two hundred": return
[over]
print "over"
end
print "never"
