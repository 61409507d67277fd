'include a.bas
'include a.bas
end
