title "A rotation of forty maps in a given order takes at most sixty gestures"

host opens profile 1 target t
host replies
tab "Map Settings"
# Nine of Deathmatch, in the order wanted.
double-click lstAvlMaps 8
double-click lstAvlMaps 2
double-click lstAvlMaps 5
double-click lstAvlMaps 0
double-click lstAvlMaps 7
double-click lstAvlMaps 1
double-click lstAvlMaps 3
double-click lstAvlMaps 4
double-click lstAvlMaps 6
push cmdRight
# Of Team Deathmatch all second halves, and then the first ones.
select lstAvlMaps 1 3 5 7 9 11 13 15
key lstAvlMaps +
select lstAvlMaps 0 2 4 6 8 10 12 14
key lstAvlMaps +
push cmdRight
push cmdRight
# All of the next, of which the two last are to be played first of all.
keys lstAvlMaps Ctrl+A
key lstAvlMaps +
# One too many was added at the end by mistake: taken back.
double-click lstAvlMaps 0
keys lstAvlMaps Ctrl+Z
expect lstSelMaps count = 41
select lstSelMaps 39 40
keys lstSelMaps Alt+Home
# One goes, and one comes five places earlier.
type lstSelMaps dev
keys lstSelMaps Del
select lstSelMaps 12
repeat 5 times
  keys lstSelMaps Alt+Up
end
expect at most 60 gestures
expect lstSelMaps count = 40
expect lstSelMaps row 0 = "Tunnel Trouble A <TKHP_01A.BMS>"
expect lstSelMaps row 2 = "Squirrels Nest <DMP_01A.BMS>"
expect lstSelMaps row 7 = "Panic Attack B <TDMM_01F.BMS>"
expect lstSelMaps row 11 = "Culture Clash B <TDMK_01B.BMS>"
expect lstSelMaps row 18 = "Culture Clash A <TDMK_01A.BMS>"
expect lstSelMaps row 26 = "Meat Grinder A <TKHK_01A.BMS>"
expect lstSelMaps row 39 = "Desert Fox B <TKHM_03B.BMS>"
push cmdCancel
