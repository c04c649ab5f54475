title "The menu of the map lists offers what can be done there"

host opens profile 1 target t
host replies
tab "Map Settings"
cannot menu lstSelMaps "Select All"
cannot menu lstSelMaps Undo
menu lstAvlMaps "Select All"
menu lstAvlMaps Add
expect lstSelMaps count = 9
# The right button selects a row that was not selected.
menu lstSelMaps row 8 "Move to Top"
expect lstSelMaps row 0 = "Squirrels Nest <DMP_01A.BMS>"
expect lstSelMaps selected = 0
menu lstSelMaps row 0 "Move Down"
select lstSelMaps 0 1
# On a selected one it leaves the others selected.
menu lstSelMaps row 1 "Move to End"
expect lstSelMaps selected = "7 8"
expect lstSelMaps row 7 = "Road Rage <DMK_01A.BMS>"
cannot menu lstSelMaps "Move Down"
menu lstSelMaps "Move Up"
menu lstSelMaps
expect menu
| (Add | +)
| Remove | Del
| -
| Move Up | Alt+Up
| Move Down | Alt+Down
| Move to Top | Alt+Home
| Move to End | Alt+End
| -
| Undo | Ctrl+Z
| (Redo | Ctrl+Y)
| -
| Select All | Ctrl+A
menu lstSelMaps Remove
expect lstSelMaps count = 7
menu lstAvlMaps Undo
expect lstSelMaps count = 9
menu lstAvlMaps
expect menu
| Add | +
| (Remove | Del)
| -
| (Move Up | Alt+Up)
| (Move Down | Alt+Down)
| (Move to Top | Alt+Home)
| (Move to End | Alt+End)
| -
| Undo | Ctrl+Z
| Redo | Ctrl+Y
| -
| (Select All | Ctrl+A)
menu lstAvlMaps Redo
expect lstSelMaps count = 7
push cmdCancel
