'INCLUDE a.bas
'include b.bas
call a1
