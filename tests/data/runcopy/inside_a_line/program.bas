print 1 'include a.bas
    'include    b.bas   
end
