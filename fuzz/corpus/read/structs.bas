struct pen, x as long, y as long
struct both, s as short, w as word, u as ushort, d as dword, l as ulong, f as double, b as boolean, p as ptr, t$ as ptr, n as char[20], q as struct
pen.x.struct = 1 + pen.y.struct
both.n.struct = "abc" + both.t$.struct : print both.n.struct; len(both.struct); len(pen.struct)
PEN = pen.x.STRUCT
call other
sub other
    struct two, a as long, name$ as ptr
    two.name$.struct = "x" : a = two.a.struct
    struct pen, x as long, y as long
end sub
sub third
    struct two, a as long, b as long, name$ as ptr
    two.b.struct = two.a.struct
end sub
