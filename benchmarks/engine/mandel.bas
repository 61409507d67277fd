w = 400: h = 400: m = 200
for y = 0 to h-1
 ci = 2*y/h - 1
 for x = 0 to w-1
  cr = 2*x/w - 1.5
  zr = 0: zi = 0: i = 0
  while i < m and zr*zr + zi*zi < 4
   t = zr*zr - zi*zi + cr
   zi = 2*zr*zi + ci
   zr = t
   i = i + 1
  wend
  s = s + i
 next
next
print s
