title "Maps join the rotation by double click and by plus or equals, in their order"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 2
expect lstSelMaps rows
| Cracked <DMM_01E.BMS>
expect lstSelMaps data 0 = 0
expect lstSelMaps selected = ""
expect lstSelMaps tooltip = "Maps: 1 / 117"
expect lblMapCnt caption = "Number of Maps: 1"
# The same map may stand there twice.
double-click lstAvlMaps 2
expect lstSelMaps count = 2

# The order of the list counts, not that of the clicks.
select lstAvlMaps 8 0 4
key lstAvlMaps +
expect lstSelMaps rows
| Cracked <DMM_01E.BMS>
| Cracked <DMM_01E.BMS>
| Road Rage <DMK_01A.BMS>
| Mines Eye <DMM_01H.BMS>
| Squirrels Nest <DMP_01A.BMS>
expect lstAvlMaps selected = "0 4 8"
key lstAvlMaps =
expect lstSelMaps count = 8

# Other keys, and the key of the other list, do nothing.
key lstAvlMaps -
key lstAvlMaps x
key lstSelMaps +
key lstSelMaps =
expect lstSelMaps count = 8
select lstAvlMaps none
key lstAvlMaps +
expect lstSelMaps count = 8
double-click lstAvlMaps below
expect lstSelMaps count = 8

# Maps of other game types keep theirs.
push cmdLeft
double-click lstAvlMaps 0
expect lstSelMaps row 8 = "Scrimmage Line A <FBK_01A.BMS>"
expect lstSelMaps data 8 = 8
expect lblMapCnt caption = "Number of Maps: 9"
expect lstAvlMaps count = 18
expect no box
push cmdCancel
