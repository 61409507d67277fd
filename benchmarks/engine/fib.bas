print fib(32)
function fib(n)
 if n < 2 then
  fib = n
 else
  fib = fib(n-1) + fib(n-2)
 end if
end function
