n = 5000000
a = [0] * (n + 1)
c = 0
for i in range(2, n + 1):
    if a[i] == 0:
        c += 1
        for j in range(i * i, n + 1, i):
            a[j] = 1
print(c)
