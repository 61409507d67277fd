local t={} local n=0
for i=1,20000000 do if i%7==0 then t[i]=" " else t[i]="x" end end
local a=table.concat(t)
local c=0 for w in a:gmatch(" ") do c=c+1 end
print(#a,c)
