title "A hidden dialog keeps its values; opening it again empties the rotation but not the list"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
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
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
expect lblMapCnt caption = "Number of Maps: 1"
double-click lstAvlMaps 0
expect lstSelMaps rows
| Culture Clash A <TDMK_01A.BMS>
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
host hides
expect dialog hidden
