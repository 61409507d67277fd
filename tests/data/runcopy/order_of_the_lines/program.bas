'include b.bas
'InClUdE a.bas
end
