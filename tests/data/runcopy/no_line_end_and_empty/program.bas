'include e.bas
'include n.bas
end
