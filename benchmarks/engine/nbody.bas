pi = 3.141592653589793
solar = 4 * pi * pi: days = 365.24
for i = 0 to 4
 read x(i), y(i), z(i), u(i), v(i), w(i), m(i)
 u(i) = u(i) * days: v(i) = v(i) * days: w(i) = w(i) * days: m(i) = m(i) * solar
 px = px + u(i) * m(i): py = py + v(i) * m(i): pz = pz + w(i) * m(i)
next
u(0) = 0 - px / solar: v(0) = 0 - py / solar: w(0) = 0 - pz / solar
print energy(0)
for k = 1 to 500000
 for i = 0 to 4
  xi = x(i): yi = y(i): zi = z(i): ui = u(i): vi = v(i): wi = w(i): mi = m(i)
  for j = i + 1 to 4
   dx = xi - x(j): dy = yi - y(j): dz = zi - z(j)
   d = dx * dx + dy * dy + dz * dz
   g = 0.01 / (d * sqr(d))
   mj = m(j) * g: mg = mi * g
   ui = ui - dx * mj: vi = vi - dy * mj: wi = wi - dz * mj
   u(j) = u(j) + dx * mg: v(j) = v(j) + dy * mg: w(j) = w(j) + dz * mg
  next
  u(i) = ui: v(i) = vi: w(i) = wi
 next
 for i = 0 to 4: x(i) = x(i) + 0.01 * u(i): y(i) = y(i) + 0.01 * v(i): z(i) = z(i) + 0.01 * w(i): next
next
print energy(0)
end
function energy(unused)
 for i = 0 to 4
  e = e + 0.5 * m(i) * (u(i) * u(i) + v(i) * v(i) + w(i) * w(i))
  for j = i + 1 to 4
   dx = x(i) - x(j): dy = y(i) - y(j): dz = z(i) - z(j)
   e = e - m(i) * m(j) / sqr(dx * dx + dy * dy + dz * dz)
  next
 next
 energy = e
end function
data 0, 0, 0, 0, 0, 0, 1
data 4.84143144246472090, -1.16032004402742839, -0.103622044471123109, 0.00166007664274403694, 0.00769901118419740425, -0.0000690460016972063023, 0.000954791938424326609
data 8.34336671824457987, 4.12479856412430479, -0.403523417114321381, -0.00276742510726411, 0.00499852801234917238, 0.0000230417297573763929, 0.000285885980666130812
data 12.8943695621391310, -15.1111514016986312, -0.223307578892655734, 0.00296460137564761618, 0.00237847173959480950, -0.0000296589568540237556, 0.0000436624404335156298
data 15.3796971148509165, -25.9193146099879641, 0.179258772950371181, 0.00268067772490389322, 0.00162824170038242295, -0.0000951592254519715870, 0.0000515138902046611451
