title "A hidden dialog keeps its values; opening it again empties the rotation but not the list"

host opens profile 1 target t
host replies
tab "Map Settings"
select lstAvlMaps 0-2
key lstAvlMaps +
push cmdRight
host hides
expect dialog hidden
expect txtGametype text = "Team Deathmatch"
cannot push cmdCancel
host hides

host opens profile 2 target u
expect dialog shown
expect dialog pointer = busy
expect request GetGameSettingsRem = Plugin_kvrBHDGS_GetGameSettingsRem_u_VB6_2
expect txtName text = "Story Server"
expect fmeMap shown = true
expect txtGametype text = "Team Deathmatch"
# The list still shows what the rotation no longer holds, until the next refresh.
expect lstSelMaps count = 3
expect lblMapCnt caption = "Number of Maps: 3"
# A click names the game type, a start sends what the rotation holds, and there is nothing to shuffle.
select lstSelMaps 1
expect lstSelMaps tooltip = Deathmatch
push cmdStart
expect payload maps = 0
click cmdRandomize
expect lstSelMaps count = 3
# Saving finds no record behind the first row, and says which.
answer "{root}\profiles\2\settings\stale.hsf"
push cmdSave
expect trapped cmdSave 5 "Invalid procedure call or argument [0]"
expect file "{root}\profiles\2\settings\stale.hsf" lacks Map0
# Removing refreshes the list to what is there.
select lstSelMaps 0
key lstSelMaps -
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"
push cmdStart
expect box "Error!" "You haven't selected any maps!"
push cmdCancel
expect dialog hidden

# Replies and answers reach a dialog that is hidden.
host opens profile 1 target t
host hides
reply "Server Name" = "While Hidden"
host replies
host opens profile 1 target t
expect txtName text = "While Hidden"
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
host hides
expect pending = StartGame
host replies with 0
expect box Failed! "Failed to initialize game process!"
expect dialog hidden
host opens profile 1 target t
expect txtName text = ""
expect lblMapCnt caption = "Number of Maps: 0"
push cmdCancel

# A dialog can be hidden before there is one.
host hides
expect dialog hidden
expect lstMax count = 50
host opens profile 1 target t
expect dialog shown
