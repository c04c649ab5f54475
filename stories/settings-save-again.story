title "Saving over a longer rotation keeps the old file beside the new one"

file "{root}\profiles\1\settings\old.hsf"
| ; kept by hand
| [Settings]
| txtName=Old
| cboMods=None
| Map0=0[-]0[-]DMK_01A.BMS
| Map1=0[-]0[-]DMM_01A.BMS
| [Notes]
| by=Anna
file "{root}\profiles\1\settings\old.hsf.bak" = "an even older one"
file "{root}\profiles\1\settings\old.hsf.bak2" = "an old one"
host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 2
answer "{root}\profiles\1\settings\old.hsf"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\1\settings\old.hsf.bak" = "an even older one"
expect file "{root}\profiles\1\settings\old.hsf.bak2" = "an old one"
expect file "{root}\profiles\1\settings\old.hsf.bak3"
| ; kept by hand
| [Settings]
| txtName=Old
| cboMods=None
| Map0=0[-]0[-]DMK_01A.BMS
| Map1=0[-]0[-]DMM_01A.BMS
| [Notes]
| by=Anna
expect file "{root}\profiles\1\settings\old.hsf" contains "Map0=0[-]0[-]DMM_01E.BMS{crlf}"
expect file "{root}\profiles\1\settings\old.hsf" lacks Map1
expect file "{root}\profiles\1\settings\old.hsf" lacks Anna
push cmdCancel
