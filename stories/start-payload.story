title "The start request carries every option and the rotation"

host opens profile 3 target abc
reply "Host Message" = " hi "
reply "Server Name" = "Night Server"
reply "Country Code" = DE
reply "Password" = "p_w|d-x"
reply "Session Type" = "LAN IP"
reply "Max Players" = 24
reply "Start Delay" = 2
reply "Loop Maps" = 1
reply "Kill and Score Limit" = 25
reply "Zone Timer" = 30
reply "Respawn Time" = 31
reply "Time Limit" = 41
reply "Nova Login" = yes
reply "Custom Skins" = no
reply "Dedicated" = yes
reply "Blue Password" = "   "
reply "Red Password" = "fire{u+E4}"
reply "Min Ping Check" = yes
reply "Min Ping" = 10
reply "Max Ping Check" = no
reply "Max Ping" = 900
reply "Game Port" = 17500
reply map "Capture the Flag" "Twin Towers" XCTF_TWI.BMS
reply mods "Team Sabre" None
host replies
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
expect payload text 0 = " hi "
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
expect payload 12 = 40
expect payload 13 = 1
expect payload 14 = 0
expect payload 15 = 1
expect payload 16 = 1
expect payload 17 = ""
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
