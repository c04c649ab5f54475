title "Start Game repairs pings and port without a word"

host opens profile 1 target t
reply "Min Ping" = 70000
reply "Max Ping" = 70000
reply "Game Port" = ""
host replies
tab "Map Settings"
double-click lstAvlMaps 0
expect lstTime index = 19
push cmdStart
expect no box
expect txtMinPing text = 0
expect txtMaxPing text = 1500
expect txtPort text = 17479
expect payload 20 = 0
expect payload 22 = 1500
expect payload 24 = 17479

# The highest numbers that stand, and how else a number may be written.
reply "Min Ping" = 65535
reply "Max Ping" = " +65535.0 "
reply "Game Port" = 0
host replies with 0
expect box "Failed!" "Failed to initialize game process!"
host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
expect txtMinPing text = 65535
expect txtMaxPing text = " +65535.0 "
expect txtPort text = 17479
expect payload 20 = 65535
expect payload 22 = " +65535.0 "
host replies with 1

# A time limit that was never chosen becomes the first of its list; a port of any number stands.
host opens profile 1 target t
reply "Max Ping" = 65535.5
reply "Game Port" = -1
reply raw 11 = 0
host replies
expect lstTime index = -1
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
expect lstTime index = 0
expect txtMaxPing text = 1500
expect payload 12 = 0
expect payload 24 = -1
host replies with 1
