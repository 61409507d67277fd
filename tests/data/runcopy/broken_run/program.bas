'include a.bas
'a comment
'include b.bas
end
