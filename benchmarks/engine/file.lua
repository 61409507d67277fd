local f=io.open("lines.tmp","w") for i=1,1000000 do f:write("line ",i,"\n") end f:close()
local n=0 for l in io.lines("lines.tmp") do n=n+#l end print(n)
os.remove("lines.tmp")
