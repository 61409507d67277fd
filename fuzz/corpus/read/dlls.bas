open "jpeg.dll" for DLL as #j
calldll #user32, "GetDesktopWindow", h as ulong
calldll #j, "Load", 0 as long, file$ as ptr, "" as PTR, a$(1) as ptr, n(2) as Boolean, result as void
calldll #user32, "GetClientRect", h as ulong, rect as struct, r as boolean
struct rect, left as long, top as long
calldll #comctl32, _
    "Create", _ 'the name
    h as long,_
    s.t$.struct as ptr, _
    s.n.struct as long
struct s, t$ as ptr, n as long
callback address, compare(long, long), long
function compare(a, b)
    calldll #kernel32, "Compare", a as long, b as long, compare as long
end function
