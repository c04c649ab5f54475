title "The maps of a second reply replace as many of the first; more than 64 are found as well"

file "{root}\profiles\1\settings\all.mpl"
| 0[-]1[-]old.bms
| 0[-]1[-]new.bms
| 7[-]1[-]both.bms
host opens profile 1 target t
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

# Maps 64 and 65, counted from 0, are the ones that matter.
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
