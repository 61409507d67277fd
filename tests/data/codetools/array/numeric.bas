    DIM total(3)
    total(1) = 1
    total(2) = -2.5
    total(3) = x + 1


