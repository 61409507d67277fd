5 = a
* a
prnt "x"
call nobody 1
call 5
let = 5
let if
left$(a$, 1) = "x"
then a = 1
print #
print #h "a" "b"
input 5
input "x" a
input #h
line a$
read
read 5
restore 5.5
goto
goto a
goto [nowhere]
gosub 500
on a goto [x]
on error [x]
on error goto [nowhere]
open "x" as #1
open "x" for input
open "x" for input as 1
open 5 for input as #1
dim a
dim a()
dim a$(1,2,3)
dim left$(5)
dim print(5)
button #h, "x"
button #h, 5, [nowhere], UL, 1, 2
button #h, "x", [inside], UL, 1, 2
button #h, "x", nobody, UL, 1, 2
button #h, "x", value, UL, 1, 2
timer 5, [nowhere]
listbox #h, a$, [x], 1, 2, 3, 4
listbox #h, a(), [x], 1, 2, 3, 4
confirm "x", a$
confirm "x"; a
sort a, 1, 2
name "a" "b"
cursor 5
notice 5
playmidi "x", n$
field #f, 5 n$
calldll #u, "x"
calldll #u, "x", 5 as long
calldll #u, "x", a$ as long, r as long
calldll #u, "x", a as struct, r as long
calldll #u, "x", a as number, r as long
calldll #u, "x", a as long, r as struct
callback a, nobody(long), long
callback a, value(long), long
struct
struct s
struct s, a
struct s, a as long, a as long
struct s, a as char
struct s, a as char[0]
struct s, a as void
q.a.struct = 1
s2.b.struct = 1
struct s2, a as long
data "x
data "x" y
a = 1 b = 2
cls 5
wait a
end 5
[x] [x]
[
[]
a$() = "x"
1.5 print "x"
struct s2, a as char[5]
b$ = s2.a.struct
x = value
x = value(1, 2)
x = value("x")
value 5
call value 5
x = inside(5)
call inside
call inside 1, "x"
value(3) = 5
inside(3) = 5
sub inside a
[inside]
end sub
function value(a)
end function
