title "Cancel while the start is awaited: a late answer is still taken"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
expect screen pointer = busy
push cmdCancel
expect dialog hidden
expect screen pointer = default
expect pending = StartGame
host replies with 0
expect box "Failed!" "Failed to initialize game process!"
host replies with 1
expect no box
expect dialog hidden
