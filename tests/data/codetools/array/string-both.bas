    DIM days$(x2)
    days$(x1) = "Mon"
    days$(x2) = "Tue"


