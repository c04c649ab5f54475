title "An item that cannot be compared ends the rights there"

right "Change GS Session Type" = 0
right "Change GS Max Players" = 0
right "Change GS Game Mod" fails
right "Change GS Dedicated Mode" = 0
host sets rights
expect trapped SetPrivis 13 "Type mismatch"
host opens profile 1 target t
expect lstSession enabled = false
expect lstMax enabled = false
expect cboMods enabled = true
expect chkDedi enabled = true
push cmdCancel
