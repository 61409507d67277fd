if a then b = 1
if a then b = 1 else b = 2
if a then [x] else 100
if a then if b then c = 1 else c = 2 else c = 3
if a then b = 1 : c = 2 else b = 3 : c = 4
if a then for i = 1 to 3 : print i : next i
if a then print "one line" : end if
if a then 'a comment opens a block
    b = 1
else b = 2
end if
if a then rem so does this
    b = 1
elseif b then c = 3
elseif c then
    b = 2 : c = 1
else
    b = 3
endif
if a then : b = 1 : else : b = 2 : end if
if a then if b then
    c = 1
end if
[x]
100 for i = 10 to 1 step -1
    if i = 5 then exit for
    while i
        if b then exit while
        exit for
    wend
next
do : loop
do while a : exit do : loop
do until a : loop while b
do
    loop until a > 3
select case a
case 1, 2 : b = 1
case 3
    select case b$
    case "x" : c = 1
    end select
case else : b = 3
end select
select case
    case a < 1, b > 2
        c = 1
    case 1
end select
select case a$
end select
gosub [x] : goto 100 : end
stop
on error goto [x]
on error goto 0
resume
return
