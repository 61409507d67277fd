on error goto [show]
[top]
n = n + 1
if n = 1 then a(11) = 1
if n = 2 then dim q(-1)
if n = 3 then x = 1e300 * 1e300
if n = 4 then x = log(0)
if n = 5 then x$ = chr$(256)
if n = 6 then return
if n = 7 then read x
if n = 8 then print #nothing, "x"
if n = 9 then x = 0 ^ -1
if n = 10 then x$ = space$(-1)
if n = 11 then a(1, 1) = 2
if n = 12 then kill "no such file"
if n < 12 then [top]
end
[show]
print n; ": "; Err
goto [top]
