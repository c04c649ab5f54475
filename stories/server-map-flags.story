title "A map counts as the machine's own when the machine has one of that name"

host opens profile 1 target t
# The machine's "Road Rage" is of another game type and another file.
reply map Flagball "Road Rage" XFB_RAGE.BMS
host replies
tab "Map Settings"
double-click lstAvlMaps 0
double-click lstAvlMaps 1
push cmdLeft
double-click lstAvlMaps 18
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Road Rage <XFB_RAGE.BMS>
push cmdStart
expect payload maps = 3
expect payload map 0 = "Road Rage <DMK_01A.BMS> 0 True"
expect payload map 1 = "City Madness <DMM_01A.BMS> 0 False"
expect payload map 2 = "Road Rage <XFB_RAGE.BMS> 8 True"
host replies with 1
expect dialog hidden
