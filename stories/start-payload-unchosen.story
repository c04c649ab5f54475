title "What was never chosen is sent as such, and the whole payload is as it should be"

# The reply fails at its first number, so that no list has an item chosen; the machine's maps are
# known by then, and stay known when the dialog goes.
host opens profile 1 target t
reply map Deathmatch A a.bms
reply raw 4 = x
host replies
expect trapped RemoteData 13 "Type mismatch [1, ]"
push cmdCancel

host opens profile 1 target t
file "{root}\profiles\1\settings\one.mpl" = "0[-]1[-]a.bms{crlf}"
answer "{root}\profiles\1\settings\one.mpl"
tab "Map Settings"
push cmdLoadMaps
expect lstSelMaps rows
| A <a.bms>
tab "Server Settings"
type txtName S
expect lstSession index = -1
push cmdStart
expect payload = "_Uw==___0_0_-1_0_0_0_0_-1_0_0_0_1_0___0_0_0_1500_14863_17479_|-QQ==_YS5ibXM=_0_True"
expect lstTime index = 0
host replies with 1
