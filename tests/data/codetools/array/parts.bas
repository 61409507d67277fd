    DIM a$(5)
    a$(1) = "left"
    a$(2) = "right"
    a$(3) = ""
    a$(4) = ""
    a$(5) = ""


