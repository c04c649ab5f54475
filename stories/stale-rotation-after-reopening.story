title "What each action does while the list shows a rotation that is gone"

host opens profile 1 target t
host replies
tab "Map Settings"
select lstAvlMaps 0-2
key lstAvlMaps +
host hides
host opens profile 1 target t
expect lstSelMaps count = 3

# A click still names the game type; nothing else is touched.
select lstSelMaps 1
expect lstSelMaps tooltip = Deathmatch
expect lstSelMaps count = 3

# A start sends what the rotation holds: nothing.
push cmdStart
expect payload maps = 0

# Shuffling fewer than two maps changes nothing.
click cmdRandomize
expect lstSelMaps count = 3

# Saving finds no record behind the first row, and says which.
answer "{root}\profiles\1\settings\stale.hsf"
push cmdSave
expect trapped cmdSave 5 "Invalid procedure call or argument [0]"
expect file "{root}\profiles\1\settings\stale.hsf" lacks Map0

# Removing refreshes the list to what is there.
select lstSelMaps 0
key lstSelMaps -
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"
push cmdStart
expect box "Error!" "You haven't selected any maps!"
host replies with 1
