title "The arrows step through all nine game types, and a mod rebuilds the catalogue for the one at hand"

host opens profile 1 target t
tab "Map Settings"
# Before the first mod is chosen there is no catalogue yet.
push cmdRight
expect txtGametype text = "Team Deathmatch"
expect lstAvlMaps no rows
expect lstAvlMaps tooltip = "Maps: 0 / 0"
push cmdLeft
host replies
expect txtGametype text = Deathmatch
expect lstAvlMaps count = 9
expect lstAvlMaps row 0 = "Road Rage <DMK_01A.BMS>"
expect lstAvlMaps row 8 = "Squirrels Nest <DMP_01A.BMS>"
expect lstAvlMaps data 8 = 0
expect lstAvlMaps tooltip = "Maps: 9 / 117"
double-click lstAvlMaps 0
push cmdRight
expect txtGametype text = "Team Deathmatch"
expect lstAvlMaps count = 16
expect lstAvlMaps data 0 = 1
push cmdRight
expect txtGametype text = Cooperative
expect lstAvlMaps no rows
expect lstAvlMaps tooltip = "Maps: 0 / 117"
push cmdRight
expect txtGametype text = "Team King of the Hill"
push cmdRight
expect txtGametype text = "King of the Hill"
push cmdRight
expect txtGametype text = "Search and Destroy"
push cmdRight
expect txtGametype text = "Attack and Defend"
push cmdRight
expect txtGametype text = "Capture the Flag"
push cmdRight
expect txtGametype text = Flagball
expect lstAvlMaps tooltip = "Maps: 18 / 117"
push cmdRight
expect txtGametype text = Deathmatch

tab "Server Settings"
choose cboMods "Team Sabre"
tab "Map Settings"
expect cboMods text = "Team Sabre"
expect lstAvlMaps count = 14
expect lstAvlMaps row 4 = "Squid Island <DMR_05.BMS>"
expect lstAvlMaps row 5 = "Road Rage <DMK_01A.BMS>"
expect lstAvlMaps tooltip = "Maps: 14 / 185"
# The rotation is never filtered.
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
push cmdLeft
expect txtGametype text = Flagball
expect lstAvlMaps count = 28
expect lstAvlMaps data 27 = 8

tab "Server Settings"
choose cboMods None
tab "Map Settings"
expect txtGametype text = Flagball
expect lstAvlMaps count = 18
push cmdRight
expect lstAvlMaps count = 9
# Only "None" is no mod.
tab "Server Settings"
reply mods none "None " None
host replies
choose cboMods none
expect lstAvlMaps count = 14
choose cboMods None
expect lstAvlMaps count = 9
choose cboMods "None "
expect lstAvlMaps count = 14
push cmdCancel
