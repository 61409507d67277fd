    DIM $(1)
    $(1) = "Mon"


