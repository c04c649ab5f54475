title "The machine's own maps join the catalogue, those of a later reply replace them, and the mods double"

file "{root}\profiles\1\settings\all.mpl"
| 0[-]1[-]old.bms
| 0[-]1[-]new.bms
| 7[-]1[-]both.bms
host opens profile 1 target t
tab "Map Settings"
reply map "Search and Destroy" "Shadow Valley" sv.bms
reply map Cooperative "Night Convoy" XCOOP_01.BMS
reply map Deathmatch "Bridge <2" XDM_BRG.BMS
reply mods None " Team Sabre " "   " None
host replies
expect cboMods rows
| None
|  Team Sabre{u+20}
| None
expect lstAvlMaps count = 10
expect lstAvlMaps row 9 = "Bridge <2 <XDM_BRG.BMS>"
expect lstAvlMaps data 9 = 0
expect lstAvlMaps tooltip = "Maps: 10 / 120"
# The same reply again.
host replies
expect cboMods rows
| None
|  Team Sabre{u+20}
| None
| None
|  Team Sabre{u+20}
| None
expect lstAvlMaps count = 10
expect lstAvlMaps row 9 = "Bridge <2 <XDM_BRG.BMS>"
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

# Entries of blanks only are passed over; what is left may be odd. The refresh comes at once.
reply encodes 25 = "Dry Dock <dock.bms>5" "Nameless<x.bms>5" "no brackets5"
host replies
expect lstAvlMaps count = 19
expect lstAvlMaps row 16 = "Dry Dock <dock.bms>"
expect lstAvlMaps row 17 = "Nameless <x.bms>"
expect lstAvlMaps row 18 = " <o bracket>"
reply raw 25 = " |   | "
host replies
expect lstAvlMaps count = 16
expect lstAvlMaps tooltip = "Maps: 16 / 117"
expect no box

# A game type that is no number cannot be compared.
reply encodes 25 = "Odd <odd.bms>x"
host replies
expect trapped SetMaps 13 "Type mismatch"
push cmdCancel

# The maps of a second reply replace as many of the first.
host opens profile 1 target t
reply new
reply map Deathmatch "Old One" old.bms
reply map "Capture the Flag" "Both Here" both.bms
host replies
tab "Map Settings"
expect lstAvlMaps row 9 = "Old One <old.bms>"
reply no maps
reply map Deathmatch "New One" new.bms
reply map "Capture the Flag" "Both There" both.bms
host replies
expect lstAvlMaps row 9 = "New One <new.bms>"
expect lstAvlMaps tooltip = "Maps: 10 / 119"
answer "{root}\profiles\1\settings\all.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list"
expect lstSelMaps rows
| New One <new.bms>
| Both There <both.bms>
double-click lstAvlMaps 9
push cmdStart
expect payload map 0 = "New One <new.bms> 0 True"
expect payload map 1 = "Both There <both.bms> 7 True"
expect payload map 2 = "New One <new.bms> 0 True"
host replies with 1

# More than 64: maps 64 and 65, counted from 0, are the ones that matter.
file "{root}\profiles\1\settings\many.mpl"
| 0[-]1[-]m.bms
| 8[-]1[-]64.bms
| 0[-]1[-]65.bms
| 0[-]1[-]64.bms
host opens profile 1 target t
reply no maps
repeat 64 times
  reply map Deathmatch M m.bms
end
reply map Flagball "Sixty Four" 64.bms
reply map Deathmatch "Sixty Five" 65.bms
host replies
tab "Map Settings"
expect lstAvlMaps count = 74
expect lstAvlMaps row 73 = "Sixty Five <65.bms>"
answer "{root}\profiles\1\settings\many.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list"
expect lstSelMaps rows
| M <m.bms>
| Sixty Four <64.bms>
| Sixty Five <65.bms>
double-click lstAvlMaps 73
push cmdStart
expect payload map 1 = "Sixty Four <64.bms> 8 True"
expect payload map 3 = "Sixty Five <65.bms> 0 True"
host replies with 1
