read a, b$, c(2), c$(a)
restore : restore [more] : restore 100 : restore [end]
data 1, two words , "quoted, text", , it is [b]:data 5
data "a" , b 'comment
[more] data 7, _
    8, nine
data
100 data ,
call inside
[end]
sub inside
    read x : restore [more]
end sub
