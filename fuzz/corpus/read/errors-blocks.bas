next
wend
loop
end if
else
elseif a then
case 1
end select
end sub
end function
exit for
exit sub
exit
exit if
if a
    b = 1
end if
if a goto [x]
if then b = 1
for
next
for i 1 to 3
next
for i = 1 3
next
for i = 1 to 3
next j
while
wend
do while
loop until
select a
end select
select case a
case "x"
case else
case 2
end select
if a then
else
else
elseif b then
end if
for i = 1 to 3
    while a
next
do
    if a then
loop
if a then next
sub one a, a
    for i = 1 to 3
sub two b,
    global x
    exit function
end function
function three
    goto [main]
[twice]
[twice]
end function
function three(a)
end function
sub print
end sub
sub four byref
end sub
function left$(a)
end function
function five(five)
end function
select case b
case 1
sub six
    if a then
        while b
