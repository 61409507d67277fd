n = 5000000
dim a(n)
for i = 2 to n
 if a(i) = 0 then
  c = c + 1
  for j = i*i to n step i
   a(j) = 1
  next
 end if
next
print c
