global g, g$
g = 1: g$ = "global"
x = 5
call show x, "text"
show 6, "again"
call change x, g$
print x; g$
dim a(3), a$(3)
a(1) = 10: a$(2) = "item"
call change a(1), a$(2)
print a(1); a$(2)
call locals
call locals
print deep(5000)
sub show n, t$
  print n; " "; t$; " "; g
  n = 99
end sub
sub change byref n, byref t$
  n = n + 1
  t$ = t$ + "!"
  call further n
end sub
sub further byref m
  m = m * 2
end sub
sub locals
  v = v + 1
  print "v is "; v; " x is "; x
end sub
function deep(n)
  if n = 0 then deep = 0 else deep = 1 + deep(n - 1)
end function
