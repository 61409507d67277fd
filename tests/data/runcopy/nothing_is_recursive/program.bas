'include n.bas
end
