title "Choosing a mod rebuilds the catalogue for the game type at hand"

host opens profile 1 target t
host replies
tab "Map Settings"
expect lstAvlMaps rows
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Cracked <DMM_01E.BMS>
| Walled In <DMM_01G.BMS>
| Mines Eye <DMM_01H.BMS>
| Stadium Riot <DMM_01K.BMS>
| Desert Funeral <DMM_02A.BMS>
| Devil Dogs <DMM_03A.BMS>
| Squirrels Nest <DMP_01A.BMS>
expect lstAvlMaps tooltip = "Maps: 9 / 117"
double-click lstAvlMaps 0

tab "Server Settings"
choose cboMods "Team Sabre"
expect cboMods text = "Team Sabre"
tab "Map Settings"
expect lstAvlMaps rows
| Crude City Conflict <DMR_01A.BMS>
| Tequila Sunset <DMR_02A.BMS>
| Smuggler's Run <DMR_03A.BMS>
| Oil Island <DMR_04A.BMS>
| Squid Island <DMR_05.BMS>
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Cracked <DMM_01E.BMS>
| Walled In <DMM_01G.BMS>
| Mines Eye <DMM_01H.BMS>
| Stadium Riot <DMM_01K.BMS>
| Desert Funeral <DMM_02A.BMS>
| Devil Dogs <DMM_03A.BMS>
| Squirrels Nest <DMP_01A.BMS>
expect lstAvlMaps tooltip = "Maps: 14 / 185"
# The rotation is never filtered.
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
push cmdLeft
expect txtGametype text = Flagball
expect lstAvlMaps count = 28

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
