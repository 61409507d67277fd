from math import sqrt

n = 300


def times(u, columns):
    v = []
    for i in range(n):
        s = 0
        for j in range(n):
            ij = i + j
            s += u[j] / (ij * (ij + 1) / 2 + (j if columns else i) + 1)
        v.append(s)
    return v


u = [1.0] * n
v = u
for k in range(10):
    v = times(times(u, False), True)
    u = times(times(v, False), True)
b = sum(p * q for p, q in zip(u, v))
c = sum(q * q for q in v)
print("%.8f" % sqrt(b / c))
