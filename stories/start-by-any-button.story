title "Any mouse button over the face or the caption starts the game, each time with the values of that moment"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart right
expect pending = StartGame
expect payload text 1 = "Story Server"
expect cmdStartImg picture = butup.gif
tab "Server Settings"
paste txtName Renamed
push cmdStartImg middle
expect payload text 1 = Renamed
tab "Map Settings"
double-click lstAvlMaps 1
push cmdStart
expect payload maps = 2
expect screen pointer = busy
host replies with 1
expect dialog hidden
expect screen pointer = default
