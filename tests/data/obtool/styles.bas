' first
[start]
open "x y" for input as #f
total = 12.5 + left$(a$, 3)
print "ä"
x=((1))
rem end
  end
