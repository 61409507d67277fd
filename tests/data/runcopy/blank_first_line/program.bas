
'include a.bas
end
