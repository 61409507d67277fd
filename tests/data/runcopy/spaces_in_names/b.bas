function b1()
end function
