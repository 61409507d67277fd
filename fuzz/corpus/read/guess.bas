'Guess the number: a small game in a window of its own.
'Shows loops, branch labels, a sub and a function.

nomainwin
WindowWidth = 360 : WindowHeight = 220

statictext #game.hint, "I think of a number from 1 to 100.", 15, 15, 320, 20
textbox #game.try, 15, 45, 80, 25
button #game.ask, "Guess", [guess], UL, 110, 45, 80, 25
statictext #game.answer, "", 15, 85, 320, 20
button #game.again, "New number", [newNumber], UL, 15, 130, 100, 25

open "Guess the number" for window as #game
#game "trapclose [quit]"
#game.try "!setfocus"

[newNumber]
secret = pickNumber(100)
tries = 0
call report "Type a number and press Guess."
wait

[guess]
#game.try "!contents? text$"
number = val(text$)
tries = tries + 1
if number = secret then
    call report "Right! It took you " + str$(tries) + " tries."
else
    if number < secret then call report "Too small." else call report "Too large."
end if
wait

[quit]
close #game
end

sub report message$
    #game.answer message$
end sub

function pickNumber(highest)
    rem a number from 1 to highest
    pickNumber = int(rnd(1) * highest) + 1
end function
