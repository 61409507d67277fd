    DIM Array$(-1)


