title "The arrows step through all nine game types and around both ends"

host opens profile 1 target t
tab "Map Settings"
# Before the first mod is chosen there is no catalogue yet.
push cmdRight
expect txtGametype text = "Team Deathmatch"
expect lstAvlMaps no rows
expect lstAvlMaps tooltip = "Maps: 0 / 0"
push cmdLeft
host replies
expect txtGametype text = Deathmatch
expect lstAvlMaps count = 9
expect lstAvlMaps data 8 = 0
push cmdRight
expect txtGametype text = "Team Deathmatch"
expect lstAvlMaps count = 16
expect lstAvlMaps data 0 = 1
push cmdRight
expect txtGametype text = Cooperative
expect lstAvlMaps no rows
expect lstAvlMaps tooltip = "Maps: 0 / 117"
push cmdRight
expect txtGametype text = "Team King of the Hill"
expect lstAvlMaps count = 16
push cmdRight
expect txtGametype text = "King of the Hill"
expect lstAvlMaps no rows
push cmdRight
expect txtGametype text = "Search and Destroy"
expect lstAvlMaps count = 16
push cmdRight
expect txtGametype text = "Attack and Defend"
expect lstAvlMaps count = 18
push cmdRight
expect txtGametype text = "Capture the Flag"
expect lstAvlMaps count = 24
push cmdRight
expect txtGametype text = Flagball
expect lstAvlMaps count = 18
expect lstAvlMaps tooltip = "Maps: 18 / 117"
push cmdRight
expect txtGametype text = Deathmatch
push cmdLeft
expect txtGametype text = Flagball
expect lstAvlMaps data 17 = 8
# Any mouse button steps, over the face as over the caption.
push cmdLeftImg right
expect txtGametype text = "Capture the Flag"
push cmdRight middle
expect txtGametype text = Flagball
repeat 9 times
  push cmdLeft
end
expect txtGametype text = Flagball
push cmdCancel
