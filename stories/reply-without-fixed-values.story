title "Without fixed values in the reply the withheld options take their defaults"

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
push cmdCancel
