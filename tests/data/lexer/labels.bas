[start]
[two words]
goto [start] : gosub [Sub.1$!?]
if a then [start] else [end]
[]
[ no] [no ] [	no] [no	]
[open to the end
a[1] = b[i + 1]
[it's one] [say "x"]
[[twice]]
[a] ] [
"[string]" '[comment]
[ [inner]
[x
]
