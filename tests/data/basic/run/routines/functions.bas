print add(2, 3); " "; twice$("ab"); " "; fact(10)
print fib(15)
print none()
function add(a, b)
  add = a + b
end function
function twice$(t$)
  twice$ = t$ + t$
end function
function fact(n)
  fact = 1
  if n > 1 then fact = n * fact(n - 1)
end function
function fib(n)
  if n < 2 then fib = n: exit function
  fib = fib(n - 1) + fib(n - 2)
end function
function none()
end function
