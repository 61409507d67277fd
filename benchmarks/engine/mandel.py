w = h = 400
m = 200
s = 0
for y in range(h):
    ci = 2 * y / h - 1
    for x in range(w):
        cr = 2 * x / w - 1.5
        zr = zi = 0.0
        i = 0
        while i < m and zr * zr + zi * zi < 4:
            zr, zi = zr * zr - zi * zi + cr, 2 * zr * zi + ci
            i += 1
        s += i
print(s)
