'include a.BAS
'include SUB\b.bas
end
