title "A map list replaces the rotation with the maps that are known"

file "{root}\profiles\1\settings\week.mpl"
| 0[-]0[-]DMK_01A.BMS
|
| no separator here
| 0[-]0
| 0[-]0[-]DMM_01A.BMS[-]more
| 1[-]0[-]DMK_01A.BMS
| 0[-]0[-]  DMM_01E.BMS  {u+20}
| 0[-]1[-]XDM.BMS
| 0[-]1[-]DMM_01G.BMS
| 0[-]false[-]DMM_01H.BMS
| 0[-]0[-]dmk_01a.bms
| 0[-]true[-]XDM.BMS
host opens profile 1 target t
reply map Deathmatch "Own One" XDM.BMS
host replies
tab "Map Settings"
double-click lstAvlMaps 3
push cmdRight
answer "{root}\profiles\1\settings\week.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list" in "{root}\profiles\1\settings"
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
| Cracked <DMM_01E.BMS>
| Own One <XDM.BMS>
| Mines Eye <DMM_01H.BMS>
| Own One <XDM.BMS>
expect lstSelMaps tooltip = "Maps: 5 / 118"
expect lblMapCnt caption = "Number of Maps: 5"
expect dialog pointer = default
expect frmrcBHDGS enabled = true
expect no box
expect txtGametype text = "Team Deathmatch"
# What was read is saved with its flags.
answer "{root}\profiles\1\settings\week.hsf"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\1\settings\week.hsf" contains "Map1=0[-]0[-]DMM_01E.BMS{crlf}Map2=0[-]1[-]XDM.BMS{crlf}Map3=0[-]0[-]DMM_01H.BMS{crlf}"
push cmdStart
expect payload map 2 = "Own One <XDM.BMS> 0 True"
expect payload map 3 = "Mines Eye <DMM_01H.BMS> 0 False"
expect payload map 4 = "Own One <XDM.BMS> 0 False"

answer cancel
push cmdLoadMaps
expect lstSelMaps count = 5
file "{root}\profiles\1\settings\nothing.mpl" = ""
answer "{root}\profiles\1\settings\nothing"
push cmdLoadMaps
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"
expect lstSelMaps tooltip = "Maps: 0 / 118"
host replies with 1
