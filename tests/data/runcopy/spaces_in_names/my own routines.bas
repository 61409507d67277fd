'routines of a
sub a1
end sub
