if a then print 1
if a then [there]
if a then print 1 else print 2
if a then b = 1 : end
if a then rem nothing to do
end if
if a then 'a comment behind
end if
for i = 1 to 3 : print i : next i
for i = 1 to 3 : for j = 1 to 3
next j : next i
while a : wend
while a : while b : wend
wend
do while x
loop while x
do
loop until x
do : scan : loop until x
open f$ for input as #1
open "x" for random as #2 : for i = 1 to 2
    exit for
next
exit while
if a then for i = 1 to 3
next
if a then b else while c
wend
select x$
select
case 1
select case x : end select
call sub
print function ; sub ; if ; for
gosub [for]
for
' next
rem next
"next"
[next]
next#h
end
end : if a then
end if
end 'if
if
then
if a
if a then :
a = 1 if b then
if a then if b then
end if
[x] for
10 for
