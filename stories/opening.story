title "The host opens the plug-in: the query goes out and the dialog shows its initial values"

expect no request GetGameSettingsRem
host opens profile 3 target abc
expect dialog shown
expect frmrcBHDGS caption = "Select Hosting Options"
expect request GetGameSettingsRem = Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3
expect pending = LoadForm
expect dialog pointer = busy
expect screen pointer = default

# Server settings
expect fmeServer shown = true
expect txtMessage text = ""
expect txtName text = ""
expect txtCountry text = ""
expect txtPassword text = ""
expect lstSession index = -1
expect lstSession rows
| Tiodioksi
| LAN IP
expect lstMax index = -1
expect lstMax count = 50
expect lstDelay rows
| No Delay
| 1 Minute
| 2 Minutes
| 3 Minutes
expect chkLoop value = 0
expect lstKills count = 500
expect lstKills row 499 = 500
expect lstScore row 0 = 1
expect lstScore row 499 = 500
expect lstZone count = 60
expect lstZone row 59 = 60
expect lstRespawn count = 121
expect lstRespawn row 0 = 0
expect lstRespawn row 120 = 120
expect lstTime count = 101
expect lstTime row 100 = 100
expect lstTime index = -1
expect chkNova value = 0
expect chkSkins value = 0
expect chkWindow value = 1
expect chkDedi value = 0
expect cboMods no rows
expect cboMods text = ""

# Misc options
expect fmeMisc shown = false
expect txtBlue text = ""
expect txtRed text = ""
expect chkFFKills value = 0
expect chkFFTags value = 1
expect chkFFWarn value = 0
expect chkTeam value = 0
expect chkTracers value = 0
expect chkClays value = 0
expect chkAutoRange value = 0
expect chkMinPing value = 0
expect txtMinPing text = 0
expect chkMaxPing value = 0
expect txtMaxPing text = 1500
expect txtPort text = 17479

# Map settings
expect fmeMap shown = false
expect txtGametype text = Deathmatch
expect lstAvlMaps no rows
expect lstSelMaps no rows
expect lblMapCnt caption = "Number of Maps: 0"
expect Picture1 shown = false

push cmdCancel
expect dialog hidden
expect screen pointer = default
