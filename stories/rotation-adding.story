title "Maps join and leave the rotation by double click and by plus, equals and minus"

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

# Other keys, and the keys of the other list, do nothing; nor does anything where nothing is selected.
key lstAvlMaps -
key lstAvlMaps x
key lstSelMaps +
key lstSelMaps =
key lstSelMaps -
key lstSelMaps x
select lstAvlMaps none
key lstAvlMaps +
double-click lstAvlMaps below
double-click lstSelMaps below
expect lstSelMaps count = 8

# Maps of other game types keep theirs.
push cmdLeft
double-click lstAvlMaps 0
expect lstSelMaps row 8 = "Scrimmage Line A <FBK_01A.BMS>"
expect lstSelMaps data 8 = 8
expect lblMapCnt caption = "Number of Maps: 9"
expect lstAvlMaps count = 18

select lstSelMaps 1 3 5-7
key lstSelMaps -
expect lstSelMaps rows
| Cracked <DMM_01E.BMS>
| Road Rage <DMK_01A.BMS>
| Squirrels Nest <DMP_01A.BMS>
| Scrimmage Line A <FBK_01A.BMS>
expect lstSelMaps selected = ""
expect lblMapCnt caption = "Number of Maps: 4"
expect lstSelMaps tooltip = "Maps: 4 / 117"
double-click lstSelMaps 1
expect lstSelMaps row 1 = "Squirrels Nest <DMP_01A.BMS>"
select lstSelMaps all
key lstSelMaps -
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"
expect lstSelMaps tooltip = "Maps: 0 / 117"
key lstSelMaps -
double-click lstSelMaps below
expect lstSelMaps no rows
expect no box
push cmdCancel
