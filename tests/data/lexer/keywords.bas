print PRINT PrInT printer xprint print$ print! print? print_
left$(a$, 2) left$ left LEFT$("x", 1) Left$ (a)
abs(1) abs abs$
print1 1print _print
time$ time
for fors for_
averyveryverylongidentifier averyveryverylongidentifier2
end.if
a=print:print=b
