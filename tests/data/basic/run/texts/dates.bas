' The clock of this test shows 21 November 2026, 14:05:09.042.
print date$(); " "; date$("mm/dd/yyyy"); " "; date$("mm/dd/yy"); " "; date$("yyyy/mm/dd")
print date$("days"); " "; date$("1/1/1901"); " "; date$("2026/11/21"); " "; date$("02/29/2024")
print date$(45980); " "; date$(0); " "; date$(-1); " "; date$(date$("12/31/1999") + 1)
print time$(); " "; time$("seconds"); " "; time$("milliseconds"); " "; time$("ms")
a$ = "11/21/2026"
print date$(a$) + 1
print date$("02/29/2023")
