a = 1 + 2 * 3 ^ 2 ^ x
a = -2^2 : a = 2^-1 : a = 2^-1^2 : a = 2 ^ - - b
a = b - -c * d : a = -b mod c : a = -b * -c
a = not b = c : a = not b and c or not d xor e
a = 1 < 2 < 3 : a = (b = c) = d
a$ = b$ + c$ + "x" : a = b$ + c$ <> d$ : a = "a" < "b"
a = ((((b)))) * (c + d) : a = b(1) + b(2, c) : b$(c) = "x"
a = 12 + .5 + 1.5e-3 + 2d10 + 3. + 1E5 + 007 + 123456789012345678
a = sqr(abs(-4)) + max(1, min(2, 3)) + int(rnd(1) * 6)
a$ = mid$("abc", 2) + mid$("abc", 2, 1) + word$(a$, 1, ",")
a = instr(a$, "b") + instr(a$, "b", 2) + len(a$)
a = midipos( ) + LEFT + left : left = 3 : left$ = "x"
a$ = LEFT$(a$, 2) + Chr$ (65) + using("##.#", a) + winstring(a)
a = eval(a$) : a$ = eval$("1")
