title "Tooltips: limits, counts, and the game type of a clicked map"

host opens profile 1 target t
expect txtMessage tooltip = "Limit: 88 Characters"
expect txtName tooltip = "Limit: 31 Characters"
expect txtCountry tooltip = "Limit: 2 Characters"
expect txtPassword tooltip = "Limit: 16 Characters"
expect lstSession tooltip = ""
expect lstMax tooltip = "Limit: 1 - 500"
expect lstDelay tooltip = "Limit: 0 - 3"
expect chkLoop tooltip = ""
expect lstKills tooltip = "Limit: 1 - 500"
expect lstScore tooltip = "Limit: 1 - 500"
expect lstZone tooltip = "Limit: 1 - 60"
expect lstRespawn tooltip = "Limit: 0 - 120"
expect lstTime tooltip = "Limit: 0 - 100"
expect cboMods tooltip = ""
expect txtBlue tooltip = "Limit: 31 Characters"
expect txtPort tooltip = "Limit: 31 Characters"
expect cmdRandomize tooltip = "Randomize Current Maps List"
expect lstSelMaps tooltip = ""

reply map Flagball "Salt Flats" XFB.BMS
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdLeft
push cmdLeft
expect txtGametype text = "Capture the Flag"
double-click lstAvlMaps 0
expect lstSelMaps tooltip = "Maps: 2 / 118"
push cmdRight
select lstSelMaps 1
expect lstSelMaps tooltip = "Capture the Flag"
select lstSelMaps 0
expect lstSelMaps tooltip = Deathmatch
select lstSelMaps 0 1
expect lstSelMaps tooltip = "Capture the Flag"
# The next refresh shows the count again.
double-click lstAvlMaps 18
expect lstSelMaps tooltip = "Maps: 3 / 118"
expect lstAvlMaps tooltip = "Maps: 19 / 118"
push cmdCancel
