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

# A file that made way comes back when not even the first key is written: the kit refuses the line
# break.
file "{root}\profiles\1\settings\c.hsf" = "; mine{crlf}[Settings]{crlf}txtName=Old{crlf}Map9=0[-]0[-]DMM_01A.BMS{crlf}"
reply "Host Message" = "two{crlf}lines"
host replies
answer "{root}\profiles\1\settings\c.hsf"
push cmdSave
expect trapped cmdSave 5 "The value {quote}two{crlf}lines{quote} cannot be stored: it has a line break in it"
expect file "{root}\profiles\1\settings\c.hsf" = "; mine{crlf}[Settings]{crlf}txtName=Old{crlf}Map9=0[-]0[-]DMM_01A.BMS{crlf}"
expect file "{root}\profiles\1\settings\c.hsf.bak" missing

# After the first key it stays beside what is written, and no later save replaces it.
reply "Host Message" = "one line"
reply "Blue Password" = "two{crlf}lines"
host replies
answer "{root}\profiles\1\settings\c.hsf"
push cmdSave
expect trapped cmdSave 5 "The value {quote}two{crlf}lines{quote} cannot be stored: it has a line break in it"
expect file "{root}\profiles\1\settings\c.hsf" contains "txtMessage=one line{crlf}"
expect file "{root}\profiles\1\settings\c.hsf" lacks mine
expect file "{root}\profiles\1\settings\c.hsf.bak" contains "; mine{crlf}"

# An old file that the kit cannot read is set aside too.
kit ParseIniKey fails 57 "Device I/O error"
answer "{root}\profiles\1\settings\c.hsf.bak"
push cmdSave
expect trapped cmdSave 5 "The value {quote}two{crlf}lines{quote} cannot be stored: it has a line break in it"
expect file "{root}\profiles\1\settings\c.hsf.bak" lacks mine
expect file "{root}\profiles\1\settings\c.hsf.bak.bak" contains "; mine{crlf}"
push cmdCancel
