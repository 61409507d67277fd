print date$(); date$("mm/dd/yyyy"); date$("days") + 1; date$("DAYS") * 2; date$("11/21/2026") - 1; date$(5)
print time$(); time$("seconds") / 60; time$("ms")
a = date$(f$) : a$ = date$(f$) : a = date$(f$) + 1 : a$ = "x" + date$(f$) : print time$(f$)
a = date$(f$) > time$(g$) : if date$(f$) then b = 1
select case time$(f$)
case "x"
end select
a$ = date$("d" + "ays") : a = date$("d" + "ays")
