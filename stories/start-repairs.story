title "Start Game repairs pings and port without a word, and sends what was never chosen as such"

host opens profile 1 target t
reply "Blue Password" = "   "
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
expect payload 17 = ""
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

# A port of any number stands.
host opens profile 1 target t
reply "Max Ping" = 65535.5
reply "Game Port" = -1
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
expect txtMaxPing text = 1500
expect payload 24 = -1
host replies with 1

# The reply fails at its first number, so that no list has an item chosen; the machine's maps are
# known by then. The time limit becomes the first of its list.
reply new
reply map Deathmatch A a.bms
reply raw 4 = x
host opens profile 1 target t
host replies
expect trapped RemoteData 13 "Type mismatch [1, ]"
file "{root}\profiles\1\settings\one.mpl" = "0[-]1[-]a.bms{crlf}"
answer "{root}\profiles\1\settings\one.mpl"
tab "Map Settings"
push cmdLoadMaps
expect lstSelMaps rows
| A <a.bms>
expect lstSession index = -1
expect lstTime index = -1
push cmdStart
expect payload = "_U3RvcnkgU2VydmVy___0_0_-1_0_0_0_0_-1_0_0_0_1_0___0_0_0_1500_14863_17479_|-QQ==_YS5ibXM=_0_True"
expect lstTime index = 0
host replies with 1
