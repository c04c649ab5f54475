title "A save that fails is reported with what was written so far left in place"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
kit WriteIniKey fails 70 "Permission denied"
answer "{root}\profiles\1\settings\a.hsf"
push cmdSave
expect trapped cmdSave 70 "Permission denied"
expect file "{root}\profiles\1\settings\a.hsf" missing
expect txtMessage text = " "

# In the middle: what is written stays, nothing is said of success.
kit WriteIniKey fails from now on 57 "Device I/O error"
answer "{root}\profiles\1\settings\a.hsf"
push cmdSave
expect trapped cmdSave 57 "Device I/O error"
kit works

# A line break that no such file can hold.
reply "Blue Password" = "two{crlf}lines"
host replies
answer "{root}\profiles\1\settings\b.hsf"
push cmdSave
expect trapped cmdSave 5 "The value {quote}two{crlf}lines{quote} cannot be stored: it has a line break in it"
expect file "{root}\profiles\1\settings\b.hsf" contains "cboMods=None{crlf}"
expect file "{root}\profiles\1\settings\b.hsf" lacks txtBlue
expect file "{root}\profiles\1\settings\b.hsf" lacks Map0

# The next save completes it.
tab "Misc Options"
paste txtBlue ""
answer "{root}\profiles\1\settings\b.hsf"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\1\settings\b.hsf" contains "{crlf}txtBlue= {crlf}"
expect file "{root}\profiles\1\settings\b.hsf" contains "{crlf}Map0=0[-]0[-]DMK_01A.BMS{crlf}"
push cmdCancel
