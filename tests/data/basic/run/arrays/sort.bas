for i = 0 to 4: read a(i): next
data 3, 1, 2, 5, 4
sort a(), 0, 4: for i = 0 to 4: print a(i);: next: print
sort a(), 4, 0: for i = 0 to 4: print a(i);: next: print
sort a(), 1, 3: for i = 0 to 4: print a(i);: next: print
dim t$(3, 1)
t$(0, 0) = "pear": t$(0, 1) = "2": t$(1, 0) = "fig": t$(1, 1) = "1": t$(2, 0) = "apple": t$(2, 1) = "2"
sort t$(), 0, 2, 1: for i = 0 to 2: print t$(i, 0); t$(i, 1); " ";: next: print
sort t$(), 0, 2: for i = 0 to 2: print t$(i, 0); t$(i, 1); " ";: next: print
