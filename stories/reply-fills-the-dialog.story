title "The reply fills every option, and the pointer goes back"

host opens profile 1 target t
expect dialog pointer = busy
type txtPassword typed
reply "Host Message" = "Welcome, all!"
reply "Server Name" = "Night Server"
reply "Country Code" = DE
reply "Session Type" = "LAN IP"
reply "Max Players" = 24
reply "Start Delay" = 2
reply "Loop Maps" = 2
reply "Kill and Score Limit" = 25
reply "Zone Timer" = 30
reply "Respawn Time" = 31
reply "Time Limit" = 32
reply "Nova Login" = yes
reply "Custom Skins" = yes
reply "Windowed" = no
reply "Dedicated" = no
reply "Blue Password" = sky
reply "Red Password" = fire
reply "Min Ping Check" = yes
reply "Min Ping" = 10
reply "Max Ping Check" = yes
reply "Max Ping" = 900
reply "Game Port" = 17500
host replies

expect txtMessage text = "Welcome, all!"
expect txtName text = "Night Server"
expect txtCountry text = DE
expect lstSession index = 1
expect lstMax index = 23
expect lstMax top = 23
expect lstDelay index = 2
expect lstDelay row 2 = "2 Minutes"
expect chkLoop value = 1
expect lstKills index = 24
expect lstScore index = 24
expect lstScore row 24 = 25
expect lstZone index = 29
expect lstZone row 29 = 30
expect lstRespawn index = 30
expect lstTime index = 31
expect chkNova value = 1
expect chkSkins value = 1
# Windowed is what a started server always runs in.
expect chkWindow value = 1
expect chkDedi value = 0
expect txtBlue text = sky
expect txtRed text = fire
expect chkMinPing value = 1
expect txtMinPing text = 10
expect chkMaxPing value = 1
expect txtMaxPing text = 900
expect txtPort text = 17500
expect cboMods text = None
expect dialog pointer = default
expect pending = LoadForm

# An empty text leaves what the operator has typed; an empty ping or port empties its box.
expect txtPassword text = typed
reply "Host Message" = ""
reply "Min Ping" = ""
reply "Game Port" = ""
reply raw 4 = 0
# Where two flags were alike they differ now.
reply "Nova Login" = no
reply "Dedicated" = yes
reply "Min Ping Check" = no
host replies
expect chkNova value = 0
expect chkSkins value = 1
expect chkDedi value = 1
expect chkMinPing value = 0
expect chkMaxPing value = 1
expect txtMessage text = "Welcome, all!"
expect txtMinPing text = ""
expect txtPort text = ""
expect lstSession index = -1

# Numbers may be written with blanks, a sign or decimals; a half goes to the even neighbour.
reply raw 5 = " +12 "
reply raw 6 = 2.5
host replies
expect lstMax index = 11
expect lstDelay index = 2
expect no box
push cmdCancel
