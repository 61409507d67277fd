'include my own routines.bas
'include a.bas 'include b.bas
end
