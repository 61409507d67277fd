local a={} local x=42
for i=1,1000000 do x=(x*16807)%2147483647 a[i]=tostring(x) end
table.sort(a) print(a[1],a[1000000])
