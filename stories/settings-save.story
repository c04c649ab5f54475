title "Saving writes the options in their order, then the rotation; on a host without folders it makes them"

host opens profile 3 target abc
reply "Server Name" = ""
reply "Country Code" = DE
reply "Session Type" = "LAN IP"
reply "Max Players" = 24
reply "Nova Login" = yes
reply "Red Password" = "a = b; c"
reply map "Capture the Flag" "Twin Towers" XCTF_TWI.BMS
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdLeft
push cmdLeft
double-click lstAvlMaps 24
answer "{root}\profiles\3\settings\night.hsf"
push cmdSave
expect file dialog "Save Host Settings" in "{root}\profiles\3\settings"
expect box Success "Host Settings Saved Successfully."
expect no box
expect file "{root}\profiles\3\settings\night.hsf" contains "[Settings]{crlf}txtMessage= {crlf}txtName=Untitled{crlf}txtCountry=DE{crlf}txtPassword= {crlf}lstSession=1{crlf}"
expect file "{root}\profiles\3\settings\night.hsf" contains "chkNova=1{crlf}chkSkins=0{crlf}chkWindow=1{crlf}chkDedi=1{crlf}cboMods=None{crlf}txtBlue= {crlf}txtRed=a = b; c{crlf}"
expect file "{root}\profiles\3\settings\night.hsf" contains "txtPort=17479{crlf}Map0=0[-]0[-]DMK_01A.BMS{crlf}Map1=7[-]1[-]XCTF_TWI.BMS{crlf}"
# The dialog shows what empty texts became.
expect txtName text = Untitled
expect txtMessage text = " "
expect txtBlue text = " "
expect txtRed text = "a = b; c"

# Any mouse button saves; a cancelled dialog does nothing, and none needs a folder.
answer cancel
push cmdSaveImg right
expect file dialog "Save Host Settings"
expect no box
expect dialog pointer = default
push cmdCancel
host opens profile 5 target t
answer cancel
push cmdLoad
expect file dialog "Load Saved Host Settings" in "{root}\profiles\5\settings"
host hides
host opens profile 6 target t
answer cancel
tab "Map Settings"
push cmdLoadMaps
expect file dialog "Load saved map list" in "{root}\profiles\6\settings"
expect frmrcBHDGS enabled = true
push cmdCancel

# Lists without an item chosen, and an empty port, are written so.
host opens profile 4 target abc
paste txtName "   "
click chkLoop
tab "Misc Options"
paste txtPort ""
paste txtMinPing ""
paste txtMaxPing ""
# A name typed without an extension gets ".hsf".
answer "{root}\profiles\4\settings\plain"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\4\settings\plain.hsf" contains "lstMax=-1{crlf}"
expect file "{root}\profiles\4\settings\plain.hsf" contains "txtPort={crlf}"
expect file "{root}\profiles\4\settings\plain.hsf" contains "txtRed= {crlf}"
expect file "{root}\profiles\4\settings\plain.hsf" contains "txtMinPing= {crlf}chkMaxPing=0{crlf}txtMaxPing= {crlf}"
expect file "{root}\profiles\4\settings\plain.hsf" contains "txtName=   {crlf}"
expect file "{root}\profiles\4\settings\plain.hsf" contains "cboMods={crlf}"
expect file "{root}\profiles\4\settings\plain.hsf" lacks Map
expect file "{root}\profiles\4\settings\plain" missing
# A point in a folder's name begins no extension.
file "{root}\v1.2\old.txt" = old
answer "{root}\v1.2\plain"
push cmdSave
expect box Success "Host Settings Saved Successfully."
expect file "{root}\v1.2\plain.hsf" contains "lstMax=-1{crlf}"
expect txtPort text = ""
push cmdCancel
