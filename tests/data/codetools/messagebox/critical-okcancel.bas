    calldll #user32, "MessageBeep", _MB_ICONHAND  as long, beepResult as boolean

    mbflags = _MB_ICONHAND OR _MB_OKCANCEL 

    calldll #user32, "MessageBoxA", _ 
    0 as long, _
    "Stop?" as ptr, _ 
    "Halt" as ptr, _
    mbflags as long, _
    mbResult as long

    'mbResult CODES: 1=ok 2=cancel 3=abort 4=retry 5=ignore 6=yes 7=no

