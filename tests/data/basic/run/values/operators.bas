print 1 + 2 * 3; " "; (1 + 2) * 3; " "; 2 ^ 3 ^ 2; " "; 2 ^ -1; " "; -2 ^ 2
print 7 mod 3; " "; -7 mod 3; " "; 7 mod -3; " "; 5.5 mod 2
print 10 / 4; " "; 1 - 2 - 3; " "; 8 / 4 / 2; " "; 2 * -3
print 6 and 3; " "; 6 or 3; " "; 6 xor 3; " "; not(0); not(1); " "; not(5); " "; not(-1)
print 1 < 2; 2 < 1; 1 <= 1; 2 >= 3; 1 = 1; 1 <> 1
print "abc" < "abd"; "b" > "a"; "a" = "A"; "a" <> "b"; "ab" <= "ab"; "" < "a"
print 3 > 2 > 1; " "; 1 = 1 = 1
print "a" + "b" + chr$(33)
print 7.9 and 3.9; " "; -1 and 255
print 1 or 2 and 4; " "; 1 xor 1 or 1; " "; not 1 = 2
