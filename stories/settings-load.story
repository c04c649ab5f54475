title "Loading sets the options that the file names and replaces the rotation"

file "{root}\profiles\1\settings\night.hsf"
| [Other]
| txtName=Wrong
| [Settings]
| txtName=Night
| TXTPORT=4000
| lstMax.ListIndex=9
| lstDelay=-1
| chkFFKills=1
| chkLoop=2
| noSuchControl=5
| lblMapCnt=ignored
| cmdStart=ignored
| cboMods=Team Sabre
| Map0=0[-]0[-]DMR_01A.BMS
| Map1=7[-]0[-]NOSUCH.BMS
| Map2=3[-]0[-] TKHK_01A.BMS{u+20}
| Map7=0[-]0[-]unused[-]DMK_01A.BMS
| Map8=1[-]0[-]DMK_01A.BMS
| map9=0[-]0[-]DMK_01A.BMS
| Map10=0[-]1[-]XDM.BMS
| Map11=0[-]0[-]NO{nul}SUCH.BMS
| [Settings]
| txtName=Too late
host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 3
push cmdRight
tab "Server Settings"
scroll lstDelay to 2
answer "{root}\profiles\1\settings\night.hsf"
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect box kvrrcBHDGS
| The following map files do not appear to exist:{u+20}
|
| NOSUCH.BMS
| DMK_01A.BMS
| XDM.BMS
| NO{u+FFFD}SUCH.BMS
|
expect no box
expect txtName text = Night
expect txtPort text = 4000
expect lstMax index = 9
expect lstMax top = 9
expect lstDelay index = -1
expect chkFFKills value = 1
expect chkLoop value = 2
expect chkFFTags value = 1
expect cboMods text = "Team Sabre"
expect lstSelMaps rows
| Crude City Conflict <DMR_01A.BMS>
| Meat Grinder A <TKHK_01A.BMS>
| Road Rage <DMK_01A.BMS>
expect lstSelMaps data 1 = 3
expect lblMapCnt caption = "Number of Maps: 3"
expect lstSelMaps tooltip = "Maps: 3 / 185"
expect dialog pointer = default
# The game type stays; its maps are those of the mod that came with the file.
expect txtGametype text = "Team Deathmatch"
expect lstAvlMaps count = 26
expect fmeServer shown = true

# The third state of a box counts as on when the game is started.
push cmdStart
expect payload 7 = 1
expect chkLoop value = 1
expect payload map 2 = "Road Rage <DMK_01A.BMS> 0 False"

# A file without the section, and no file, empty the rotation and leave the options.
file "{root}\profiles\1\settings\empty.hsf" = "[Nothing]{crlf}a=b{crlf}"
answer "{root}\profiles\1\settings\empty.hsf"
push cmdLoad
expect lstSelMaps no rows
expect txtName text = Night
expect lblMapCnt caption = "Number of Maps: 0"
answer "{root}\profiles\1\settings\not there.hsf"
push cmdLoad
expect no box
expect lstSelMaps no rows
answer cancel
push cmdLoad
expect txtName text = Night

# A mod that the list does not have changes nothing; a single entry is no section.
file "{root}\profiles\1\settings\mod.hsf" = "[Settings]{crlf}cboMods=Other{crlf}txtName=Third{crlf}"
answer "{root}\profiles\1\settings\mod.hsf"
push cmdLoad
expect cboMods text = "Team Sabre"
expect txtName text = Third
expect no box

# A name typed without an extension means the file of that very name, then that of "NAME.hsf".
paste txtName Typed
answer "{root}\profiles\1\settings\mod"
push cmdLoad
expect txtName text = Third
file "{root}\profiles\1\settings\mod" = "[Settings]{crlf}txtName=Bare{crlf}txtPort=1{crlf}"
answer "{root}\profiles\1\settings\mod"
push cmdLoad
expect txtName text = Bare

# One entry is no settings, and a mod is named exactly.
file "{root}\profiles\1\settings\night.hsf" = "[Settings]{crlf}txtName=Alone{crlf}"
answer "{root}\profiles\1\settings\night.hsf"
push cmdLoad
expect txtName text = Bare
file "{root}\profiles\1\settings\night.hsf" = "[Settings]{crlf}txtName=Two{crlf}cboMods=NONE{crlf}"
choose cboMods "Team Sabre"
answer "{root}\profiles\1\settings\night.hsf"
push cmdLoad
expect txtName text = Two
expect cboMods text = "Team Sabre"

# A flag is any truth value; beyond four fields the third is the file's name again.
file "{root}\profiles\1\settings\flags.hsf"
| [Settings]
| cboMods=None
| Map0=7[-]2[-]XOWN.BMS
| Map1=7[-]TRUE[-]XOWN.BMS[-]more[-]and more
| Map2=7[-]-1[-]any[-] XOWN.BMS{u+20}
| Map3=7[-]false[-]CTFK_01A.BMS
push cmdCancel
host opens profile 1 target t
reply map "Capture the Flag" Own XOWN.BMS
host replies
answer "{root}\profiles\1\settings\flags.hsf"
push cmdLoad
expect lstSelMaps count = 4
push cmdStart
expect payload map 0 = "Own <XOWN.BMS> 7 True"
expect payload map 1 = "Own <XOWN.BMS> 7 True"
expect payload map 2 = "Own <XOWN.BMS> 7 True"
expect payload contains "7_False"
host replies with 1
