'include:a.bas
'includexb.bas
'include	a.bas
'include
'include 
'includeb.bas
end
