'include gone.bas
'include b.bas
'include folder
end
