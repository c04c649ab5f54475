title "The fixed mod: its other names, no mod, and one that the machine does not have"

right "Change GS Game Port" = 1
host sets rights
host opens profile 1 target t
tab "Map Settings"

reply fixed "Mod" = EXP1
host replies
expect cboMods text = "Team Sabre"
expect lstAvlMaps count = 14

reply fixed "Mod" = "  "
host replies
expect cboMods text = None
expect lstAvlMaps count = 9

reply fixed "Mod" = TeamSabre
host replies
expect cboMods text = "Team Sabre"
reply fixed "Mod" = ""
host replies
expect cboMods text = None
reply fixed "Mod" = "Exp1.pff"
host replies
expect cboMods text = "Team Sabre"
reply mods Other
reply fixed "Mod" = Other
host replies
expect cboMods text = Other
reply fixed "Mod" = "tEAM sABRE"
host replies
expect cboMods text = "Team Sabre"
expect no box

# Everything before the mod is applied, nothing behind it.
reply fixed "Mod" = "none"
reply "Server Name" = "Other Server"
reply "Game Port" = 4711
host replies
expect trapped RemoteData 383 "'none' is not an item of the list"
expect txtName text = "Other Server"
expect txtPort text = 17479
expect cboMods text = "Team Sabre"
expect dialog pointer = default
push cmdCancel
