title "A picture that is lost while the dialog is open leaves the old one in place, and the action runs"

host opens profile 1 target t
host replies
tab "Map Settings"
file "{root}\imgs\butdown.gif" missing
press cmdRight
expect cmdRightImg picture = butup.gif
expect cmdRight left != 3575
release cmdRight
expect txtGametype text = "Team Deathmatch"
file "{root}\imgs\butup.gif" missing
push cmdRight
expect txtGametype text = Cooperative
expect cmdRightImg picture = butup.gif
expect no box
push cmdCancel
expect dialog hidden
