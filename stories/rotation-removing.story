title "Maps leave the rotation by double click and by minus"

host opens profile 1 target t
host replies
tab "Map Settings"
select lstAvlMaps 0-4
key lstAvlMaps +
expect lstSelMaps count = 5
select lstSelMaps 0 2
key lstSelMaps -
expect lstSelMaps rows
| City Madness <DMM_01A.BMS>
| Walled In <DMM_01G.BMS>
| Mines Eye <DMM_01H.BMS>
expect lstSelMaps selected = ""
expect lblMapCnt caption = "Number of Maps: 3"
expect lstSelMaps tooltip = "Maps: 3 / 117"
double-click lstSelMaps 1
expect lstSelMaps rows
| City Madness <DMM_01A.BMS>
| Mines Eye <DMM_01H.BMS>

# Nothing selected: nothing leaves.
select lstSelMaps none
key lstSelMaps -
expect lstSelMaps count = 2
double-click lstSelMaps below
expect lstSelMaps count = 2
key lstSelMaps x
expect lstSelMaps count = 2

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
