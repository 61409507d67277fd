sub a
function b(c)
end function
end sub
do
loop while x
[[ [a] "open
