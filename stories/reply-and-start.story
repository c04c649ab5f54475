title "The reply fills every option, and the start request carries them and the rotation"

host opens profile 3 target abc
expect dialog pointer = busy
reply "Host Message" = " hi "
reply "Server Name" = "Night Server"
reply "Country Code" = DE
reply "Password" = "p_w|d-x"
reply "Session Type" = "LAN IP"
reply "Max Players" = 24
reply "Start Delay" = 2
reply "Loop Maps" = 2
reply "Kill and Score Limit" = 25
reply "Zone Timer" = 30
reply "Respawn Time" = 31
reply "Time Limit" = 42
reply "Nova Login" = yes
reply "Custom Skins" = yes
reply "Windowed" = no
reply "Dedicated" = no
reply "Blue Password" = sky
reply "Red Password" = "fire{u+E4}"
reply "Min Ping Check" = yes
reply "Min Ping" = 10
reply "Max Ping Check" = no
reply "Max Ping" = 900
reply "Game Port" = 17500
reply map "Capture the Flag" "Twin Towers" XCTF_TWI.BMS
reply mods "Team Sabre" None
host replies

expect txtMessage text = " hi "
expect txtName text = "Night Server"
expect txtCountry text = DE
expect txtPassword text = "p_w|d-x"
expect lstSession index = 1
expect lstMax index = 23
expect lstMax top = 23
expect lstDelay index = 2
expect chkLoop value = 1
expect lstKills index = 24
expect lstScore index = 24
expect lstZone index = 29
expect lstRespawn index = 30
expect lstTime index = 41
expect chkNova value = 1
expect chkSkins value = 1
# Windowed is what a started server always runs in.
expect chkWindow value = 1
expect chkDedi value = 0
expect txtBlue text = sky
expect txtRed text = "fire{u+E4}"
expect chkMinPing value = 1
expect txtMinPing text = 10
expect chkMaxPing value = 0
expect txtMaxPing text = 900
expect txtPort text = 17500
expect cboMods text = "Team Sabre"
expect dialog pointer = default
expect pending = LoadForm

scroll lstScore by -3
tab "Map Settings"
double-click lstAvlMaps 5
push cmdLeft
push cmdLeft
double-click lstAvlMaps 36
push cmdStart
expect pending = StartGame
expect screen pointer = busy
expect dialog shown
expect request StartGameRem envelope Plugin_kvrBHDGS_StartGameRem_abc_VB6_3
expect request GetGameSettingsRem = Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3
expect payload fields = 26
expect payload 0 = IGhpIA==
expect payload text 1 = "Night Server"
expect payload text 2 = DE
expect payload text 3 = "p_w|d-x"
expect payload 4 = 2
expect payload 5 = 24
expect payload 6 = 2
expect payload 7 = 1
expect payload 8 = 25
expect payload 9 = 22
expect payload 10 = 30
expect payload 11 = 30
expect payload 12 = 41
expect payload 13 = 1
expect payload 14 = 1
expect payload 15 = 1
expect payload 16 = 0
expect payload text 17 = sky
expect payload text 18 = "fire{u+E4}"
expect payload 19 = 1
expect payload 20 = 10
expect payload 21 = 0
expect payload 22 = 900
expect payload 23 = 14863
expect payload 24 = 17500
expect payload mod = "Team Sabre"
expect payload maps = 2
expect payload map 0 = "Road Rage <DMK_01A.BMS> 0 False"
expect payload map 1 = "Twin Towers <XCTF_TWI.BMS> 7 True"
host replies with 1
expect dialog hidden
expect no box
expect pending = StartGame
expect screen pointer = default

# An empty text leaves what the operator has typed; an empty ping or port empties its box.
host opens profile 3 target abc
type txtPassword typed
scroll lstSession by 1
reply "Password" = ""
reply "Min Ping" = ""
reply "Game Port" = ""
reply raw 4 = 0
# Where two flags were alike they differ now.
reply "Nova Login" = no
reply "Dedicated" = yes
reply "Min Ping Check" = no
reply "Max Ping Check" = yes
# Numbers may be written with blanks, a sign or decimals; a half goes to the even neighbour.
reply raw 5 = " +12 "
reply raw 6 = 2.5
host replies
expect txtPassword text = typed
expect txtMinPing text = ""
expect txtPort text = ""
expect lstSession index = -1
expect lstMax index = 11
expect lstDelay index = 2
expect chkNova value = 0
expect chkSkins value = 1
expect chkDedi value = 1
expect chkMinPing value = 0
expect chkMaxPing value = 1
expect no box
push cmdCancel
