title "A load that fails stops at the failing line, and each later action keeps list and rotation apart safely"

file "{root}\profiles\1\settings\half.hsf"
| [Settings]
| txtName=Half
| Map0=0[-]0[-]DMK_01A.BMS
| lstMax=50
| txtPort=1
host opens profile 1 target t
host replies
tab "Map Settings"
select lstAvlMaps 1-3
key lstAvlMaps +
answer "{root}\profiles\1\settings\half.hsf"
push cmdLoad
expect trapped cmdLoad 380 "Invalid property value"
expect dialog pointer = default
expect txtName text = Half
expect txtPort text = 17479
# The list still shows the rotation from before; the rotation is the one map that was read.
expect lstSelMaps count = 3
expect lstSelMaps row 0 = "City Madness <DMM_01A.BMS>"

# A start sends the rotation, not the list.
push cmdStart
expect payload maps = 1
expect payload map 0 = "Road Rage <DMK_01A.BMS> 0 False"

# Removing takes the map at the row's place out of the rotation, whatever the row shows: here the
# only one.
select lstSelMaps 0
key lstSelMaps -
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"

# Adding after a failed load adds to what was read.
answer "{root}\profiles\1\settings\half.hsf"
double-click lstAvlMaps 5
push cmdLoad
expect trapped cmdLoad 380 "Invalid property value"
expect lstSelMaps count = 1
double-click lstAvlMaps 6
expect lstSelMaps rows
| Road Rage <DMK_01A.BMS>
| Desert Funeral <DMM_02A.BMS>

# A kit that fails.
kit GetIniSection fails 57 "Device I/O error"
answer "{root}\profiles\1\settings\half.hsf"
push cmdLoad
expect trapped cmdLoad 57 "Device I/O error"
expect dialog pointer = default

# A file that names the dialog's other controls sets those that have a value, and harms nothing.
file "{root}\profiles\1\settings\odd.hsf"
| [Settings]
| txtGametype=Nothing of the kind
| tsMain=2
| fmeMap=1
| Picture1=1
| cdSettings=1
| frmrcBHDGS=1
| cmdStartImg=1
| lblMapCnt=1
| x=y
answer "{root}\profiles\1\settings\odd.hsf"
push cmdLoad
expect txtGametype text = "Nothing of the kind"
expect lblMapCnt caption = "Number of Maps: 0"
expect fmeMap shown = true
push cmdLeft
expect txtGametype text = Flagball
expect no box
push cmdCancel
