'not 'include a.bas
''include b.bas
' include a.bas
end
