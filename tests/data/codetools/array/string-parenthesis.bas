    DIM days$(1)
    days$(1) = "Mon"


