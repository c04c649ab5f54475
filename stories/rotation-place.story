title "The rotation's list keeps its place, shows what was added, and tells the game type of a clicked map"

host opens profile 1 target t
reply map Flagball "Salt Flats" XFB.BMS
host replies
tab "Map Settings"
keys lstAvlMaps Ctrl+A
repeat 3 times
  key lstAvlMaps +
end
expect lstSelMaps count = 27
expect lstSelMaps top = 17
scroll lstSelMaps to 8
double-click lstSelMaps 12
expect lstSelMaps top = 8
expect lstSelMaps caret = 12
expect lstSelMaps row 12 = "Mines Eye <DMM_01H.BMS>"
# The next map is under the pointer now.
double-click lstSelMaps 12
expect lstSelMaps row 12 = "Stadium Riot <DMM_01K.BMS>"
expect lstSelMaps count = 25
expect lstSelMaps selected = ""
scroll lstSelMaps to 15
select lstSelMaps 20-24
keys lstSelMaps Del
expect lstSelMaps count = 20
expect lstSelMaps top = 10
double-click lstAvlMaps 0
expect lstSelMaps top = 11

# Typing goes to the next row that begins so.
type lstAvlMaps c
expect lstAvlMaps selected = 1
type lstAvlMaps r
expect lstAvlMaps selected = 2
key lstAvlMaps {u+8}
expect lstAvlMaps selected = 1
key lstAvlMaps {u+8}
type lstAvlMaps c
expect lstAvlMaps selected = 2
type lstAvlMaps racx
expect lstAvlMaps selected = 2
type lstSelMaps s
expect lstSelMaps row 0 = "Road Rage <DMK_01A.BMS>"
expect lstSelMaps selected = 5
expect lstSelMaps tooltip = Deathmatch

push cmdLeft
expect lstAvlMaps tooltip = "Maps: 19 / 118"
double-click lstAvlMaps 18
expect lstSelMaps tooltip = "Maps: 22 / 118"
push cmdRight
select lstSelMaps 21
expect lstSelMaps tooltip = Flagball
# The last one that is selected counts.
select lstSelMaps 0
expect lstSelMaps tooltip = Deathmatch
select lstSelMaps 0 21
expect lstSelMaps tooltip = Flagball
push cmdCancel
