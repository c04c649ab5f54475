title "A single-row list takes the item that is scrolled into view, or that is typed within a second"

host opens profile 1 target t
expect lstMax index = -1
scroll lstMax by 3
expect lstMax index = 3
expect lstMax row 3 = 4
scroll lstMax to 49
expect lstMax index = 49
scroll lstMax by 1
expect lstMax index = 49
scroll lstMax by -49
expect lstMax index = 0
scroll lstTime to 100
expect lstTime index = 100

# The arrow keys, Home and End go by rows from the item in view.
keys lstTime Up
expect lstTime index = 99
keys lstTime Up held
expect lstTime index = 94
keys lstTime Down
expect lstTime index = 95
keys lstTime End
expect lstTime index = 100
keys lstTime Home
expect lstTime index = 0
keys lstTime Ctrl+A
expect lstTime index = 0
# There already: the item in view is meant.
expect lstScore index = -1
keys lstScore Up
expect lstScore index = 0
scroll lstScore by 1
# A click on the item in view selects it as in any list.
select lstScore 0
expect lstScore index = 0

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
repeat 3 times
  key lstKills {u+8}
end
expect lstKills index = 1
key lstKills {u+8}
type lstKills 9
expect lstKills index = 8
# The item in view counts too, when it was not chosen yet.
type lstRespawn 0
expect lstRespawn index = 0
# Without an equal item the first that begins so is meant.
type lstDelay 2
expect lstDelay index = 2
type lstSession lan
expect lstSession index = 1
type lstMax 51
expect lstMax index = 4

# What was never scrolled stays unchosen, and a reply moves what is in view.
expect lstZone index = -1
reply "Max Players" = 7
host replies
expect lstMax index = 6
expect lstMax top = 6
scroll lstMax by -1
expect lstMax index = 5
push cmdCancel
