title "Seven boxes of the misc page become one number"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
# Friendly tags on, everything else off.
expect payload 23 = 14863

# On a second press nothing has changed, and neither have the flags.
push cmdStart
expect payload 23 = 14863
expect chkFFTags value = 1
expect chkTeam value = 0

tab "Misc Options"
click chkFFKills
push cmdStart
expect payload 23 = 14351
click chkFFWarn
push cmdStart
expect payload 23 = 14343
click chkTracers
push cmdStart
expect payload 23 = 14342
click chkTeam
push cmdStart
expect payload 23 = 14338
click chkClays
push cmdStart
expect payload 23 = 47106
click chkAutoRange
push cmdStart
expect payload 23 = 112642
click chkFFKills
click chkFFTags
click chkFFWarn
click chkTeam
click chkTracers
push cmdStart
expect payload 23 = 114191
host replies with 1
expect no box
