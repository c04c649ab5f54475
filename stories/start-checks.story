title "Start Game checks the input in its order, and a refused start sends nothing"

host opens profile 1 target t
host replies
tab "Misc Options"
paste txtMinPing ""
paste txtMaxPing abc
tab "Server Settings"
paste txtName ""

# The name comes first; nothing is repaired yet.
push cmdStart
expect box "Error!" "Server Name is empty!"
expect no box
expect txtMinPing text = ""
expect pending = LoadForm

type txtName S
push cmdStart
expect box "Error!" "You haven't selected any maps!"
expect txtMinPing text = ""

tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
expect box "Error!" "Max Ping Field is not numeric!"
# The repair before the check stays.
expect txtMinPing text = 0

tab "Misc Options"
paste txtMaxPing 500
paste txtPort 80a
push cmdStart
expect box "Error!" "Game Port Field is not numeric!"

# A min ping that is no number fails instead of being refused.
paste txtMinPing low
push cmdStart
expect trapped cmdStart_Error 13 "Type mismatch"
reply "Min Ping" = 99999999999
reply "Max Ping" = 500
reply "Game Port" = 80a
host replies
push cmdStart
expect trapped cmdStart_Error 6 "Overflow"

expect no request StartGameRem
expect pending = LoadForm
expect screen pointer = default
expect dialog shown
expect no log
push cmdCancel
