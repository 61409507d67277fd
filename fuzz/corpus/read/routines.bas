global g, g$, WindowWidth, g
call show "main", 1
show "again", twice(g) + 1
show ("enclosed") + "x", 2
show("both", 3)
none
call none
a = 5 : call change a, b(2), t$, (a), p.x.struct, a + 1
print name$(2); twice(twice(a))
end

sub show t$, n
    print t$; n; g; g$ : local = local + 1
    if n then exit sub
[x] goto [x]
end sub

[x] print "the main program goes on"
goto [x]

sub none
end sub

sub change byref a, byref b, byref t$, byref c, byref d, byref e
    a = b + c : t$ = t$ + "x" : change a, b, t$, c, d, e
    struct p, x as long
end sub

function twice(n)
    twice = 2 * n : if twice > 100 then exit function
    twice = twice + twice(n - 1)
end function

function name$(g)
    name$ = str$(g)
end function

function noParameters()
    noParameters = noParameters + 1
end function

sub enclosed(a, b$)
end sub
