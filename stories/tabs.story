title "Each tab shows its own page, and what lies on the others cannot be reached"

host opens profile 1 target t
host replies
expect fmeServer shown = true
expect fmeMap shown = false
expect fmeMisc shown = false
expect Frame3 shown = true
cannot click chkTeam
cannot double-click lstAvlMaps 0

tab "Map Settings"
expect fmeServer shown = false
expect fmeMap shown = true
expect fmeMisc shown = false
expect Frame3 shown = true
expect lstAvlMaps shown = true
expect txtName shown = false
cannot type txtName x

tab "Misc Options"
expect fmeServer shown = false
expect fmeMap shown = false
expect fmeMisc shown = true
click chkTeam
expect chkTeam value = 1
click chkTeam
expect chkTeam value = 0

tab "Server Settings"
expect fmeServer shown = true
expect fmeMap shown = false
expect fmeMisc shown = false

# The reply does not turn pages.
tab "Misc Options"
host replies
expect fmeMisc shown = true
push cmdCancel
