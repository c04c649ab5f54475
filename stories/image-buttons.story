title "Image buttons: the left mouse button presses them, every button starts their action on release"

host opens profile 1 target t
host replies
tab "Map Settings"

# Released.
expect cmdRightImg picture = butup.gif
expect cmdRightImg left = 3500
expect cmdRightImg top = 240
expect cmdRight left = 3575
expect cmdRight top = 270
expect cmdRight width = 150
expect cmdRight height = 300

# Pressed: the face changes, the caption moves, nothing runs yet.
press cmdRight
expect cmdRightImg picture = butdown.gif
expect cmdRight left = 3595
expect cmdRight top = 320
expect cmdRight width = 150
expect txtGametype text = Deathmatch
release cmdRight
expect cmdRightImg picture = butup.gif
expect cmdRight left = 3575
expect cmdRight top = 270
expect txtGametype text = "Team Deathmatch"

# The face does as the caption does.
press cmdRightImg
expect cmdRightImg picture = butdown.gif
expect cmdRight top = 320
release cmdRightImg
expect cmdRightImg picture = butup.gif
expect txtGametype text = Cooperative

# Other mouse buttons change no picture and run the action all the same.
press cmdRight right
expect cmdRightImg picture = butup.gif
expect cmdRight top = 270
expect txtGametype text = Cooperative
release cmdRight right
expect txtGametype text = "Team King of the Hill"
push cmdRightImg middle
expect txtGametype text = "King of the Hill"

# A second button of the mouse while the first is held.
press cmdRight
press cmdRight right
release cmdRight right
expect txtGametype text = "Search and Destroy"
expect cmdRightImg picture = butdown.gif
release cmdRight
expect cmdRightImg picture = butup.gif
expect txtGametype text = "Attack and Defend"

# A release counts wherever the press was.
press Frame3 right
release cmdRight right
expect txtGametype text = "Capture the Flag"

# The one that follows a double click belongs to the file dialog that this has closed.
file "{root}\profiles\1\settings\one.mpl"
| 0[-]0[-]DMK_01A.BMS
answer double-click "{root}\profiles\1\settings\one.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list"
expect lstSelMaps count = 1
release cmdRight
expect txtGametype text = "Capture the Flag"
release cmdRight
expect txtGametype text = Flagball
# A press that comes before it shows that it has been released elsewhere.
answer double-click "{root}\profiles\1\settings\one.mpl"
push cmdLoadMaps
expect file dialog "Load saved map list"
push cmdLeft
expect txtGametype text = "Capture the Flag"
# However often: the released place stays the same.
expect cmdRight left = 3575
expect cmdRight top = 270

# Pressed once more while pressed: no drift either.
press cmdStart
press cmdStart
expect cmdStart left = 1535
expect cmdStart top = 418
push cmdCancel right
expect dialog hidden

# Pictures that are lost while the dialog is open: the old ones stay, and the action runs.
host opens profile 1 target t
tab "Map Settings"
file "{root}\imgs\butdown.gif" missing
press cmdRight
expect cmdRightImg picture = butup.gif
expect cmdRight left != 3575
release cmdRight
file "{root}\imgs\butup.gif" missing
push cmdRight
expect txtGametype text = Cooperative
expect cmdRightImg picture = butup.gif
expect no box
push cmdCancel

# Without them the dialog opens with what was built: one face, no captions, no number lists.
host opens profile 1 target t
expect trapped FormLoad_ERROR 53 "File not found"
expect dialog shown
expect lstMax count = 0
expect lstSession count = 2
# What has no picture is not there.
expect cmdStartImg shown = false
cannot push cmdStartImg
close
file "{root}\imgs\butup.gif" = "this is no picture"
host opens profile 1 target t
expect trapped FormLoad_ERROR 481 "Invalid picture"
close
