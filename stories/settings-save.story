title "Saving writes every option in its order, then the rotation"

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
expect file dialog "Save Host Settings"
expect box Success "Host Settings Saved Successfully."
expect no box
expect file "{root}\profiles\3\settings\night.hsf"
| [Settings]
| txtMessage={u+20}
| txtName=Untitled
| txtCountry=DE
| txtPassword={u+20}
| lstSession=1
| lstMax=23
| lstDelay=0
| chkLoop=1
| lstKills=24
| lstScore=24
| lstZone=9
| lstRespawn=19
| lstTime=19
| chkNova=1
| chkSkins=0
| chkWindow=1
| chkDedi=1
| cboMods=None
| txtBlue={u+20}
| txtRed=a = b; c
| chkFFKills=0
| chkFFTags=1
| chkFFWarn=0
| chkTeam=0
| chkTracers=0
| chkClays=0
| chkAutoRange=0
| chkMinPing=0
| txtMinPing=0
| chkMaxPing=0
| txtMaxPing=1500
| txtPort=17479
| Map0=0[-]0[-]DMK_01A.BMS
| Map1=7[-]1[-]XCTF_TWI.BMS
# The dialog shows what empty texts became.
expect txtName text = Untitled
expect txtMessage text = " "
expect txtBlue text = " "
expect txtRed text = "a = b; c"

# Any mouse button saves; a cancelled dialog does nothing.
answer cancel
push cmdSaveImg right
expect file dialog "Save Host Settings"
expect no box
expect dialog pointer = default
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
