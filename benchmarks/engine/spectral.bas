n = 300
global n
dim u(300), v(300), t(300)
for i = 0 to n-1: u(i) = 1: next
for k = 1 to 10
 for i = 0 to n-1: s = 0: for j = 0 to n-1: ij = i+j: s = s + u(j) / (ij*(ij+1)/2+i+1): next j: t(i) = s: next i
 for i = 0 to n-1: s = 0: for j = 0 to n-1: ij = i+j: s = s + t(j) / (ij*(ij+1)/2+j+1): next j: v(i) = s: next i
 for i = 0 to n-1: s = 0: for j = 0 to n-1: ij = i+j: s = s + v(j) / (ij*(ij+1)/2+i+1): next j: t(i) = s: next i
 for i = 0 to n-1: s = 0: for j = 0 to n-1: ij = i+j: s = s + t(j) / (ij*(ij+1)/2+j+1): next j: u(i) = s: next i
next
for i = 0 to n-1: b = b + u(i)*v(i): c = c + v(i)*v(i): next
print sqr(b/c)
