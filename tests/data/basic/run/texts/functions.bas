print left$("hello", 2); "|"; left$("ab", 9); "|"; right$("hello", 3); "|"; mid$("hello", 2, 3); "|"; mid$("hello", 4); "|"; mid$("ab", 9); "|"
print instr("banana", "an"); instr("banana", "an", 3); instr("banana", "x"); instr("banana", "")
print len("hello"); len(""); " "; asc("A"); asc(""); " "; chr$(66)
print trim$("  x y "); "|"; upper$("abC"); lower$("ABc"); "|"; space$(3); "|"
print word$("the quick  fox", 2); "|"; word$("a,b,,d", 3, ","); "|"; word$("a,b,,d", 4, ","); "|"; word$("a", 5); "|"
print str$(3.5); val("12.5abc"); val("x"); " "; val("-1e2"); " "; hexdec("ff"); dechex$(255)
print using("###.##", 3.14159); "|"; using("##", 123); "|"; using("#.#", -0.25); "|"
a$ = "abc"
for i = 1 to 3: b$ = mid$(a$, i, 1) + b$: next: print b$
