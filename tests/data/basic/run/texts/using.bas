' Numbers by a template, and in hexadecimal.
print using("###.##", 3.14159); using("####", -12.5); using("##", 100); using(".##", 0.5); using("#", 0)
print dechex$(255); " "; dechex$(-1); " "; hexdec("ff"); " "; hexdec("&HFF"); " "; val("&H1F"); " "; val("12.5abc"); " "; val("inf")
print word$("  one  two ", 2); " "; word$("a,,c", 3, ","); "<"; word$("a b", 0); ">"; instr("abc", ""); instr("banana", "an", 3)
print upper$("stra" + chr$(223) + "e"); mid$("abcd", -1, 2); left$("ab", 9); trim$("  x  ")
print using("$##", 1)
