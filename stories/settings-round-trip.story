title "What was saved loads into a fresh dialog as it was"

host opens profile 1 target t
reply "Host Message" = "Gr{u+FC}{u+DF}e; = [all]"
reply "Server Name" = "Night Server"
reply "Max Players" = 24
reply "Blue Password" = " blanks around "
reply map "Capture the Flag" "Twin Towers" XCTF_TWI.BMS
host replies
tab "Server Settings"
choose cboMods "Team Sabre"
tab "Misc Options"
click chkClays
tab "Map Settings"
double-click lstAvlMaps 0
push cmdLeft
push cmdLeft
double-click lstAvlMaps 36
double-click lstAvlMaps 0
answer "{root}\profiles\1\settings\trip.hsf"
push cmdSave
expect box Success "Host Settings Saved Successfully."
push cmdCancel

host opens profile 1 target t
expect chkClays value = 0
reply new
reply map "Capture the Flag" "Twin Towers" XCTF_TWI.BMS
host replies
expect txtName text = "Story Server"
answer "{root}\profiles\1\settings\trip.hsf"
push cmdLoad
expect no box
expect txtMessage text = "Gr{u+FC}{u+DF}e; = [all]"
expect txtName text = "Night Server"
expect txtCountry text = " "
expect txtBlue text = " blanks around "
expect lstMax index = 23
expect chkClays value = 1
expect cboMods text = "Team Sabre"
expect lstSelMaps count = 3
expect lstSelMaps row 0 = "Crude City Conflict <DMR_01A.BMS>"
expect lstSelMaps row 1 = "Twin Towers <XCTF_TWI.BMS>"
push cmdStart
expect payload map 1 = "Twin Towers <XCTF_TWI.BMS> 7 True"
expect payload 23 = 47631
host replies with 1

# Without the machine's maps its own one is missing.
host opens profile 1 target t
reply no maps
host replies
answer "{root}\profiles\1\settings\trip.hsf"
push cmdLoad
expect box kvrrcBHDGS "The following map files do not appear to exist: {crlf}{crlf}XCTF_TWI.BMS{crlf}"
expect lstSelMaps count = 2
push cmdCancel
