struct p, x as long, y as short, t$ as char[8], d as double
p.x.struct = 70000
p.y.struct = 70000
p.t$.struct = "hello world"
p.d.struct = 1.5
print p.x.struct; " "; p.y.struct; " "; p.t$.struct; " "; p.d.struct; " "; len(p.struct)
p.y.struct = -2.9
print p.y.struct
struct p, x as long, y as short, t$ as char[8], d as double
print p.y.struct; p.t$.struct; "|"
on error goto [none]
struct q, n$ as ptr, u as ulong
q.n$.struct = "pointed" + chr$(0) + "hidden": q.u.struct = -1
print q.n$.struct; " "; q.u.struct
[none]
