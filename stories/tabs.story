title "Each tab shows its own page, and what lies on the others cannot be reached"

host opens profile 1 target t
expect fmeServer shown = true
expect fmeMap shown = false
expect fmeMisc shown = false
expect Frame3 shown = true
cannot click chkTeam
cannot double-click lstAvlMaps 0
tab "Map Settings"
expect fmeServer shown = false
expect fmeMap shown = true
expect Frame3 shown = true
expect lstAvlMaps shown = true
cannot type txtName x
# The reply does not turn pages.
tab "Misc Options"
host replies
expect fmeMap shown = false
expect fmeMisc shown = true
tab "Server Settings"
expect fmeServer shown = true
expect fmeMisc shown = false
push cmdCancel
