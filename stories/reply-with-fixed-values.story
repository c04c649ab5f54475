title "What the operator may not change takes the reply's fixed values, or its default without them"

right "Change GS Game Port" = 1
host sets rights
host opens profile 1 target t
reply "Session Type" = "LAN IP"
reply "Max Players" = 40
reply "Nova Login" = yes
reply "Custom Skins" = yes
reply "Dedicated" = no
reply mods "Team Sabre" None
host replies
expect lstSession index = 0
expect lstMax index = 15
expect lstMax row 15 = 16
expect chkNova value = 0
expect chkSkins value = 0
expect chkWindow value = 1
expect chkDedi value = 1
expect cboMods text = "Team Sabre"

reply fixed "Session Type" = Tiodioksi
reply fixed "Max Players" = 8
reply fixed "Mod" = None
reply fixed "Windowed" = yes
reply fixed "Dedicated" = yes
reply fixed "Custom Skins" = no
reply fixed "Nova Login" = no
host replies
expect lstSession index = 0
expect lstMax index = 7
expect chkNova value = 0
expect chkSkins value = 0
expect chkDedi value = 1
expect chkWindow value = 1
expect cboMods text = None

# Each of the four differs from each other in one of the two replies.
reply fixed "Dedicated" = no
reply fixed "Custom Skins" = yes
host replies
expect chkDedi value = 0
expect chkSkins value = 1
expect chkNova value = 0

# Fixed values that are no numbers are repaired.
reply raw 26 = x
reply raw 27 = abc
reply raw 29 = ""
reply raw 30 = "-"
reply raw 31 = on
reply raw 32 = "1 1"
host replies
expect lstSession index = 0
expect lstMax index = 16
expect lstMax row 16 = 17
expect chkDedi value = 1
expect chkSkins value = 0
expect chkNova value = 0
push cmdCancel

# An operator who may change them gets the current values.
host opens profile 1 target t
host replies
expect lstSession index = 1
expect lstMax index = 39
expect chkNova value = 1
expect chkDedi value = 0
expect cboMods text = "Team Sabre"
push cmdCancel
