title "The operator's rights: what is not granted is disabled, whatever form the host gives it"

right "Change GS Session Type" = 1
right "Change GS Max Players" = 0
right "Change GS Game Mod" = number 0
right "Change GS Windowed Mode" = number 7
right "Change GS Dedicated Mode" = ""
right "Change GS Custom Skins Option" = yes
right "change gs game port" = 0
host sets rights
expect dialog hidden

host opens profile 1 target t
expect lstSession enabled = true
expect lstMax enabled = false
expect cboMods enabled = false
expect chkWindow enabled = true
expect chkDedi enabled = true
expect chkSkins enabled = true
expect txtPort enabled = false
# A right that the collection does not hold is not granted.
expect chkNova enabled = false
expect txtName enabled = true
cannot scroll lstMax by 1
cannot click chkNova
click chkDedi
expect chkDedi value = 1

# A click on the label of a check box toggles it, unless the operator may not change it.
push lblChkLoop
expect chkLoop value = 1
push lblChkLoop right
expect chkLoop value = 1
push lblChkLoop
expect chkLoop value = 0
push lblChkNova
expect chkNova value = 0

# The port has no fixed value: the reply fills it, disabled or not.
reply "Game Port" = 12345
host replies
expect txtPort text = 12345
expect txtPort enabled = false

# Rights can change while the dialog is open, also before the reply comes.
right "Change GS Max Players" = 1
right "Change GS Session Type" = 0
host sets rights
reply "Max Players" = 30
reply fixed "Max Players" = 8
reply "Session Type" = Tiodioksi
reply fixed "Session Type" = "LAN IP"
reply fixed "Mod" = None
host replies
expect lstMax index = 29
expect lstSession index = 1
expect lstMax enabled = true
expect lstSession enabled = false
expect txtPort enabled = false
# A super-administrator does not get back what another operator's rights took.
right "Change GS Session Type" = 1
host sets rights of super-administrator
expect lstSession enabled = false
push cmdCancel

# They go with the dialog. A super-administrator's rights, and none at all, change nothing.
host opens profile 1 target t
expect lstSession enabled = true
right "Change GS Max Players" = 0
right "Change GS Game Port" = 0
host sets rights of super-administrator
host sets rights
expect lstMax enabled = true
expect txtPort enabled = true
expect chkNova enabled = true
host hides

# An item that cannot be compared ends the rights there. Opened from inside a box that belongs to
# nothing, the dialog takes the operator's input: its windows exist, and wait for the box like others.
right "Change GS Session Type" = 0
right "Change GS Max Players" = 0
right "Change GS Game Mod" fails
right "Change GS Dedicated Mode" = 0
during box
  host opens profile 2 target u
  expect lstSession enabled = false
  expect lstMax enabled = false
  expect cboMods enabled = true
  expect chkDedi enabled = true
  type txtName x
  tab "Map Settings"
  push cmdCancel
end
host sets rights
expect trapped SetPrivis 13 "Type mismatch"
expect dialog hidden
