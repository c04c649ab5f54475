title "A map list that cannot be read is reported, and the dialog can be used again"

host opens profile 1 target t
host replies
tab "Map Settings"
select lstAvlMaps 3 4
key lstAvlMaps +
answer "{root}\profiles\1\settings\gone"
push cmdLoadMaps
expect trapped cmdLoadMaps 53 "File not found [{root}\profiles\1\settings\gone.mpl]"
expect frmrcBHDGS enabled = true
expect dialog pointer = default
expect lstSelMaps shown = true
# The list shows the old rotation, which is empty now: the next refresh says so.
expect lstSelMaps count = 2
double-click lstAvlMaps 0
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>

# The maps before the failing line are taken.
file "{root}\profiles\1\settings\half.mpl"
| 0[-]0[-]DMM_01A.BMS
| [-][-]DMM_01E.BMS
| 0[-]0[-]DMM_01G.BMS
answer "{root}\profiles\1\settings\half.mpl"
push cmdLoadMaps
expect trapped cmdLoadMaps 13 "Type mismatch"
expect lstSelMaps count = 1
expect frmrcBHDGS enabled = true
click cmdRandomize
push cmdStart
expect payload maps = 1
expect payload map 0 = "City Madness <DMM_01A.BMS> 0 False"
# The row shows Road Rage still, but the map at its place goes.
expect lstSelMaps row 0 = "Road Rage <DMK_01A.BMS>"
double-click lstSelMaps 0
expect lstSelMaps no rows
host replies with 1
