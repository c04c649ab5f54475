title "The remote machine's own maps join the catalogue under their game types"

host opens profile 1 target t
tab "Map Settings"
reply map "Search and Destroy" "Shadow Valley" sv.bms
reply map Cooperative "Night Convoy" XCOOP_01.BMS
reply map Deathmatch "Bridge <2" XDM_BRG.BMS
host replies
expect lstAvlMaps count = 10
expect lstAvlMaps row 9 = "Bridge <2 <XDM_BRG.BMS>"
expect lstAvlMaps data 9 = 0
expect lstAvlMaps tooltip = "Maps: 10 / 120"
push cmdRight
push cmdRight
expect txtGametype text = Cooperative
expect lstAvlMaps rows
| Night Convoy <XCOOP_01.BMS>
double-click lstAvlMaps 0
push cmdRight
push cmdRight
push cmdRight
expect txtGametype text = "Search and Destroy"
expect lstAvlMaps count = 17
double-click lstAvlMaps 16
expect lstSelMaps rows
| Night Convoy <XCOOP_01.BMS>
| Shadow Valley <sv.bms>

# Entries of blanks only are passed over; what is left may be odd.
reply encodes 25 = "Dry Dock <dock.bms>5" "Nameless<x.bms>5" "no brackets5"
host replies
expect lstAvlMaps count = 19
expect lstAvlMaps row 16 = "Dry Dock <dock.bms>"
expect lstAvlMaps row 17 = "Nameless <x.bms>"
expect lstAvlMaps row 18 = " <o bracket>"
reply raw 25 = " |   | "
host replies
expect lstAvlMaps count = 16
expect no box

# A game type that is no number cannot be compared.
reply encodes 25 = "Odd <odd.bms>x"
host replies
expect trapped SetMaps 13 "Type mismatch"
push cmdCancel
