title "The same reply twice is applied twice: the mods double, the machine's maps do not"

host opens profile 1 target t
tab "Map Settings"
reply map Deathmatch "Harbour Yard" XDM_HARB.BMS
reply mods None " Team Sabre " "   " None
host replies
expect cboMods rows
| None
|  Team Sabre{u+20}
| None
expect lstAvlMaps count = 10
expect lstAvlMaps tooltip = "Maps: 10 / 118"
tab "Server Settings"
erase txtName 6
type txtName House
expect txtName text = "Story House"

host replies
expect cboMods rows
| None
|  Team Sabre{u+20}
| None
| None
|  Team Sabre{u+20}
| None
expect txtName text = "Story Server"
tab "Map Settings"
expect lstAvlMaps count = 10
expect lstAvlMaps row 9 = "Harbour Yard <XDM_HARB.BMS>"

# The machine has lost its map: the refresh comes at once.
reply no maps
host replies
expect lstAvlMaps count = 9
expect lstAvlMaps tooltip = "Maps: 9 / 117"
push cmdCancel
