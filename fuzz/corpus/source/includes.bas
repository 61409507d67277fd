'include a.bas
'INCLUDE b.bas
[x]
sub y

