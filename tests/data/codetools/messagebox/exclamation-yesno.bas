    calldll #user32, "MessageBeep", _MB_ICONEXCLAMATION  as long, beepResult as boolean

    mbflags = _MB_ICONEXCLAMATION OR _MB_YESNO 

    calldll #user32, "MessageBoxA", _ 
    0 as long, _
    "Message text goes here!" as ptr, _ 
    "Only a title" as ptr, _
    mbflags as long, _
    mbResult as long

    'mbResult CODES: 1=ok 2=cancel 3=abort 4=retry 5=ignore 6=yes 7=no

