title "Selected maps move in the rotation and stay selected"

host opens profile 1 target t
host replies
tab "Map Settings"
select lstAvlMaps 0-5
key lstAvlMaps +
select lstSelMaps 4 2
keys lstSelMaps Alt+Up
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
| Cracked <DMM_01E.BMS>
| City Madness <DMM_01A.BMS>
| Mines Eye <DMM_01H.BMS>
| Walled In <DMM_01G.BMS>
| Stadium Riot <DMM_01K.BMS>
expect lstSelMaps selected = "1 3"
expect lstSelMaps caret = 1
expect lstSelMaps tooltip = "Maps: 6 / 117"
keys lstSelMaps Alt+Home
expect lstSelMaps rows
| Cracked <DMM_01E.BMS>
| Mines Eye <DMM_01H.BMS>
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Walled In <DMM_01G.BMS>
| Stadium Riot <DMM_01K.BMS>
expect lstSelMaps selected = "0 1"
# At the edge nothing moves, and nothing is there to undo.
keys lstSelMaps Alt+Up
select lstSelMaps 0 2
keys lstSelMaps Alt+Up
expect lstSelMaps selected = "0 1"
expect lstSelMaps row 1 = "Road Rage <DMK_01A.BMS>"
keys lstSelMaps Alt+Down
keys lstSelMaps Alt+Down
expect lstSelMaps selected = "2 3"
keys lstSelMaps Alt+End
expect lstSelMaps rows
| Mines Eye <DMM_01H.BMS>
| City Madness <DMM_01A.BMS>
| Walled In <DMM_01G.BMS>
| Stadium Riot <DMM_01K.BMS>
| Cracked <DMM_01E.BMS>
| Road Rage <DMK_01A.BMS>
expect lstSelMaps selected = "4 5"
# The keys belong to the rotation alone.
select lstAvlMaps 3
keys lstAvlMaps Alt+Up
keys lstAvlMaps Del
expect lstAvlMaps row 3 = "Walled In <DMM_01G.BMS>"
expect lstSelMaps count = 6
keys lstSelMaps Ctrl+A
expect lstSelMaps selected = "0 1 2 3 4 5"
keys lstSelMaps Alt+Down
expect lstSelMaps row 0 = "Mines Eye <DMM_01H.BMS>"
select lstSelMaps 1
keys lstSelMaps Del
expect lstSelMaps count = 5
expect lstSelMaps selected = ""
# What is sent follows the new order.
push cmdStart
expect payload map 3 = "Cracked <DMM_01E.BMS> 0 False"
host replies with 1
