title "Saving into a file whose lines do no harm changes just the keys"

file "{root}\profiles\1\settings\mine.hsf"
| ; kept by hand
| [Settings]
| txtName=Old
| colour=green
|
| [Notes]
| by=Anna
host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 2
answer "{root}\profiles\1\settings\mine.hsf"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\1\settings\mine.hsf" contains "; kept by hand{crlf}[Settings]{crlf}txtName=Story Server{crlf}colour=green{crlf}"
expect file "{root}\profiles\1\settings\mine.hsf" contains "{crlf}Map0=0[-]0[-]DMM_01E.BMS{crlf}"
expect file "{root}\profiles\1\settings\mine.hsf" contains "[Notes]{crlf}by=Anna{crlf}"
expect file "{root}\profiles\1\settings\mine.hsf.bak" missing

# Saved again with one map more: still the same file.
double-click lstAvlMaps 3
answer "{root}\profiles\1\settings\mine.hsf"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\1\settings\mine.hsf" contains "Map0=0[-]0[-]DMM_01E.BMS{crlf}Map1=0[-]0[-]DMM_01G.BMS{crlf}"
expect file "{root}\profiles\1\settings\mine.hsf.bak" missing
push cmdCancel
