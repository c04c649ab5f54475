title "A key that is held presses a button once, but goes on stepping through the game types"

host opens profile 1 target t
host replies
alt s held
expect box "Error!" "You haven't selected any maps!"
expect no box
keys cmdStartImg Enter held
expect box "Error!" "You haven't selected any maps!"
expect no box

tab "Map Settings"
alt n held
expect txtGametype text = "Search and Destroy"
keys cmdLeftImg Enter held
expect txtGametype text = Deathmatch

# One shuffle, which one step takes back.
repeat 6 times
  double-click lstAvlMaps 0
  double-click lstAvlMaps 1
end
keys cmdRandomize Enter held
keys lstSelMaps Ctrl+Z
expect lstSelMaps row 0 = "Road Rage <DMK_01A.BMS>"
expect lstSelMaps row 1 = "City Madness <DMM_01A.BMS>"
expect lstSelMaps row 10 = "Road Rage <DMK_01A.BMS>"
expect lstSelMaps row 11 = "City Madness <DMM_01A.BMS>"

# Each button has its letter.
answer cancel
alt m
expect file dialog "Load saved map list"
alt n
alt p
expect txtGametype text = Deathmatch
alt r
answer cancel
alt l
expect file dialog "Load Saved Host Settings"
answer cancel
alt v
expect file dialog "Save Host Settings"
alt c held
expect dialog hidden
expect no box
