[Add your snippets!]

Function InsertString$(string$,insert$,start)
'Inserts second string into first string at position *start*
    InsertString$=left$(string$,start-1)+insert$+mid$(string$,start)
End Function


[YourSubRoutine]
    'place your own snippet here!
RETURN
