a=(b+c)*d/e^f-g\h
a<>b<=c>=d
x! = ? ! $
$a !b ?c
a$(1),b;c:d
@ & % | ~ ` { } . ,
a.b.c
_x = _
