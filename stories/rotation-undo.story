title "Every change of the rotation can be undone and redone"

file "{root}\profiles\1\settings\week.mpl"
| 0[-]0[-]DMM_01H.BMS
file "{root}\profiles\1\settings\week.hsf"
| [Settings]
| cboMods=None
| Map0=0[-]0[-]DMM_01K.BMS
| Map1=0[-]0[-]DMM_01G.BMS
host opens profile 1 target t
host replies
tab "Map Settings"
keys lstSelMaps Ctrl+Z
double-click lstAvlMaps 0
select lstAvlMaps 1 2
key lstAvlMaps +
double-click lstSelMaps 1
select lstSelMaps 1
keys lstSelMaps Alt+Home
repeat 4 times
  click cmdRandomize
end
answer "{root}\profiles\1\settings\week.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list"
answer "{root}\profiles\1\settings\week.hsf"
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect lstSelMaps count = 2

# Back through it all, from either list and from the page's buttons.
keys lstAvlMaps Ctrl+Z
expect lstSelMaps rows
| Mines Eye <DMM_01H.BMS>
keys cmdLoadMapsImg Ctrl+Z
expect lstSelMaps rows in any order
| Road Rage <DMK_01A.BMS>
| Cracked <DMM_01E.BMS>
# A shuffle may have kept the order, and is no change then.
repeat 4 times
  keys cmdRandomize Ctrl+Z
end
repeat 9 times
  keys lstSelMaps Ctrl+Z
end
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"
keys lstSelMaps Ctrl+Y
keys cmdRandomize Ctrl+Y
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Cracked <DMM_01E.BMS>
keys lstSelMaps Ctrl+Y
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
| Cracked <DMM_01E.BMS>
keys lstSelMaps Ctrl+Y
expect lstSelMaps rows
| Cracked <DMM_01E.BMS>
| Road Rage <DMK_01A.BMS>
expect lstSelMaps selected = ""
repeat 9 times
  keys lstSelMaps Ctrl+Y
end
expect lstSelMaps rows
| Stadium Riot <DMM_01K.BMS>
| Walled In <DMM_01G.BMS>
# A new change ends what could be redone.
keys lstSelMaps Ctrl+Z
double-click lstAvlMaps 0
keys lstSelMaps Ctrl+Y
expect lstSelMaps rows
| Mines Eye <DMM_01H.BMS>
| Road Rage <DMK_01A.BMS>

# A list that cannot be read empties the rotation, though not its view.
answer "{root}\profiles\1\settings\none.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list"
expect trapped cmdLoadMaps 53 "File not found [{root}\profiles\1\settings\none.mpl]"
keys lstSelMaps Ctrl+Z
expect lstSelMaps row 1 = "Road Rage <DMK_01A.BMS>"
host hides

# A newly opened dialog has no history.
host opens profile 1 target t
host replies
tab "Map Settings"
keys lstSelMaps Ctrl+Z
cannot menu lstSelMaps Redo
double-click lstAvlMaps 0
expect lstSelMaps count = 1
# A hundred steps are kept.
repeat 102 times
  double-click lstAvlMaps 0
end
repeat 110 times
  keys lstSelMaps Ctrl+Z
end
expect lstSelMaps count = 3

# Opened again while it is shown, the rotation is empty, and can be brought back.
host opens profile 1 target t
expect trapped LoadInterface 400 "Form already displayed; it cannot be shown modally"
cannot menu lstSelMaps Redo
menu lstSelMaps Undo
expect lstSelMaps count = 3
push cmdCancel
