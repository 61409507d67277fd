local n=300 local u,v,t={},{},{}
for i=0,n-1 do u[i]=1 end
for k=1,10 do
 for i=0,n-1 do local s=0 for j=0,n-1 do local ij=i+j s=s+u[j]/(ij*(ij+1)/2+i+1) end t[i]=s end
 for i=0,n-1 do local s=0 for j=0,n-1 do local ij=i+j s=s+t[j]/(ij*(ij+1)/2+j+1) end v[i]=s end
 for i=0,n-1 do local s=0 for j=0,n-1 do local ij=i+j s=s+v[j]/(ij*(ij+1)/2+i+1) end t[i]=s end
 for i=0,n-1 do local s=0 for j=0,n-1 do local ij=i+j s=s+t[j]/(ij*(ij+1)/2+j+1) end u[i]=s end
end
local b,c=0,0 for i=0,n-1 do b=b+u[i]*v[i] c=c+v[i]*v[i] end
print(math.sqrt(b/c))
