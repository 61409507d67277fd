'include a.bas
