    calldll #user32, "MessageBeep", 0  as long, beepResult as boolean

    mbflags = 0 OR _MB_ABORTRETRYIGNORE 

    calldll #user32, "MessageBoxA", _ 
    0 as long, _
    " " as ptr, _ 
    "[Grüße | spaces ]" as ptr, _
    mbflags as long, _
    mbResult as long

    'mbResult CODES: 1=ok 2=cancel 3=abort 4=retry 5=ignore 6=yes 7=no

