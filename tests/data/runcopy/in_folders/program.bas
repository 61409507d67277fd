'include sub\a.bas
'include sub/b.bas
'include .\sub\deep\c.bas
end
