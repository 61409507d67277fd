    DIM days$(2)
    days$(1) = "Mon"
    days$(2) = "Tue"


