title "Tooltips of the map lists: counts, and the game type of a clicked map"

host opens profile 1 target t
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
