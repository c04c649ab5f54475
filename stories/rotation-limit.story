title "A rotation holds at most 255 maps"

host opens profile 1 target t
host replies
tab "Map Settings"
push cmdRight
expect lstAvlMaps count = 16
repeat 15 times
  select lstAvlMaps all
  key lstAvlMaps +
end
expect lstSelMaps count = 240
double-click lstAvlMaps 0
expect no box
select lstAvlMaps 0-12
key lstAvlMaps +
expect lstSelMaps count = 254
expect no box

# Of three maps only the first still fits.
select lstAvlMaps 3-5
key lstAvlMaps +
expect box "Failed!" "You cannot add more than 255 maps!"
expect no box
expect lstSelMaps count = 255
expect lblMapCnt caption = "Number of Maps: 255"
expect lstSelMaps tooltip = "Maps: 255 / 117"
double-click lstAvlMaps 0
expect box "Failed!" "You cannot add more than 255 maps!"
key lstAvlMaps +
expect box "Failed!" "You cannot add more than 255 maps!"
key lstAvlMaps x
cannot menu lstAvlMaps Add
expect no box
expect lstSelMaps count = 255

# With room for one again, filling it says so even when no further map was selected.
double-click lstSelMaps 254
expect lstSelMaps count = 254
select lstAvlMaps 15
key lstAvlMaps =
expect box "Failed!" "You cannot add more than 255 maps!"
expect lstSelMaps count = 255
double-click lstSelMaps 0
double-click lstAvlMaps 0
expect no box
expect lstSelMaps count = 255
expect no log
push cmdCancel
