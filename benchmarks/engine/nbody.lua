local solar, days = 4 * math.pi * math.pi, 365.24
local rows = {
 {0, 0, 0, 0, 0, 0, 1},
 {4.84143144246472090, -1.16032004402742839, -0.103622044471123109, 0.00166007664274403694, 0.00769901118419740425, -0.0000690460016972063023, 0.000954791938424326609},
 {8.34336671824457987, 4.12479856412430479, -0.403523417114321381, -0.00276742510726411, 0.00499852801234917238, 0.0000230417297573763929, 0.000285885980666130812},
 {12.8943695621391310, -15.1111514016986312, -0.223307578892655734, 0.00296460137564761618, 0.00237847173959480950, -0.0000296589568540237556, 0.0000436624404335156298},
 {15.3796971148509165, -25.9193146099879641, 0.179258772950371181, 0.00268067772490389322, 0.00162824170038242295, -0.0000951592254519715870, 0.0000515138902046611451},
}
local x, y, z, u, v, w, m = {}, {}, {}, {}, {}, {}, {}
local px, py, pz = 0, 0, 0
for i = 1, 5 do
 local r = rows[i]
 x[i], y[i], z[i], u[i], v[i], w[i], m[i] = r[1], r[2], r[3], r[4] * days, r[5] * days, r[6] * days, r[7] * solar
 px, py, pz = px + u[i] * m[i], py + v[i] * m[i], pz + w[i] * m[i]
end
u[1], v[1], w[1] = -px / solar, -py / solar, -pz / solar
local function energy()
 local e = 0
 for i = 1, 5 do
  e = e + 0.5 * m[i] * (u[i] * u[i] + v[i] * v[i] + w[i] * w[i])
  for j = i + 1, 5 do
   local dx, dy, dz = x[i] - x[j], y[i] - y[j], z[i] - z[j]
   e = e - m[i] * m[j] / math.sqrt(dx * dx + dy * dy + dz * dz)
  end
 end
 return e
end
print(string.format("%.9f", energy()))
for k = 1, 500000 do
 for i = 1, 5 do
  local xi, yi, zi, ui, vi, wi, mi = x[i], y[i], z[i], u[i], v[i], w[i], m[i]
  for j = i + 1, 5 do
   local dx, dy, dz = xi - x[j], yi - y[j], zi - z[j]
   local d = dx * dx + dy * dy + dz * dz
   local g = 0.01 / (d * math.sqrt(d))
   local mj, mg = m[j] * g, mi * g
   ui, vi, wi = ui - dx * mj, vi - dy * mj, wi - dz * mj
   u[j], v[j], w[j] = u[j] + dx * mg, v[j] + dy * mg, w[j] + dz * mg
  end
  u[i], v[i], w[i] = ui, vi, wi
 end
 for i = 1, 5 do
  x[i], y[i], z[i] = x[i] + 0.01 * u[i], y[i] + 0.01 * v[i], z[i] + 0.01 * w[i]
 end
end
print(string.format("%.9f", energy()))
