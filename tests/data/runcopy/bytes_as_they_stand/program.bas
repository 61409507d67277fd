'include l.bas
'ä€
