title "A single-row list goes to what is typed within a second"

host opens profile 1 target t
type lstKills 2
expect lstKills index = 1
type lstKills 50
expect lstKills index = 249
expect lstKills top = 249
key lstKills {u+8}
expect lstKills index = 24
# What leads nowhere is dropped.
type lstKills x0
expect lstKills index = 249
key lstKills {u+8}
key lstKills {u+8}
key lstKills {u+8}
expect lstKills index = 1
key lstKills {u+8}
type lstKills 9
expect lstKills index = 8

# The item in view counts too, when it was not chosen yet.
type lstScore 1
expect lstScore index = 0
# Without an equal item the first that begins so is meant.
type lstDelay 2
expect lstDelay index = 2
type lstSession lan
expect lstSession index = 1
type lstRespawn 0
expect lstRespawn index = 0
type lstMax 51
expect lstMax index = 4
push cmdCancel
