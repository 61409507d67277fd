	'include a.bas	
'include b.bas
end
