open "con" for output as #1
print #main.text$, "x"
print #h.a.b!c?d_9;"!hide"
close #
a = #+#h-##two
#main "trapclose [quit]"
print # 1
#a#b
