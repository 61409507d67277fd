'include gone.bas
end
