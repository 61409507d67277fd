    DIM [a,b] c$(6)
    [a,b] c$(1) = "say "hi""
    [a,b] c$(2) = "  two  spaces "
    [a,b] c$(3) = "[open,close]"
    [a,b] c$(4) = "Grüße"
    [a,b] c$(5) = "{}"
    [a,b] c$(6) = "a=b"


