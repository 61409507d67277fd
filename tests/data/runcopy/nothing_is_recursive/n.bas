'include b.bas
'nested
