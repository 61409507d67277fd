'include \a.bas
'include c:\a.bas
'include /a.bas
end
