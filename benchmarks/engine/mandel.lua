local w,h,m=400,400,200 local s=0
for y=0,h-1 do local ci=2*y/h-1
 for x=0,w-1 do local cr=2*x/w-1.5 local zr,zi,i=0.0,0.0,0
  while i<m and zr*zr+zi*zi<4 do local t=zr*zr-zi*zi+cr zi=2*zr*zi+ci zr=t i=i+1 end
  s=s+i end end
print(s)
