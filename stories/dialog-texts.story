title "All that the dialog says before anything has happened: labels, tooltips, values, items"

host opens profile 1 target t
expect frmrcBHDGS caption = "Select Hosting Options"
expect fmeServer caption = "Server Settings"
expect fmeMap caption = "Map Settings"
expect fmeMisc caption = "Misc Options"
expect Frame3 caption = Options

expect lblTxtMessage caption = "Host Message:"
expect txtMessage tooltip = "Limit: 88 Characters"
expect txtMessage text = ""
expect lblTxtName caption = "Server Name:"
expect txtName tooltip = "Limit: 31 Characters"
expect txtName text = ""
expect lblTxtCountry caption = "Country Code:"
expect txtCountry tooltip = "Limit: 2 Characters"
expect txtCountry text = ""
expect lblTxtPassword caption = Password:
expect txtPassword tooltip = "Limit: 16 Characters"
expect txtPassword text = ""
expect lblLstSession caption = "Session Type:"
expect lstSession tooltip = ""
expect lstSession index = -1
expect lblLstMax caption = "Max Players:"
expect lstMax tooltip = "Limit: 1 - 500"
expect lstMax index = -1
expect lblLstDelay caption = "Start Delay:"
expect lstDelay tooltip = "Limit: 0 - 3"
expect lstDelay index = -1
expect lblChkLoop caption = "Loop Maps:"
expect chkLoop tooltip = ""
expect chkLoop value = 0
expect lblLstKills caption = "Max Kills:"
expect lstKills tooltip = "Limit: 1 - 500"
expect lstKills index = -1
expect lblLstScore caption = "Game Score:"
expect lstScore tooltip = "Limit: 1 - 500"
expect lstScore index = -1
expect lblLstZone caption = "Zone Timer:"
expect lstZone tooltip = "Limit: 1 - 60"
expect lstZone index = -1
expect lblLstRespawn caption = "Respawn Time:"
expect lstRespawn tooltip = "Limit: 0 - 120"
expect lstRespawn index = -1
expect lblLstTime caption = "Time Limit:"
expect lstTime tooltip = "Limit: 0 - 100"
expect lstTime index = -1
expect lblChkNova caption = "Req. Nova Login:"
expect chkNova tooltip = ""
expect chkNova value = 0
expect lblChkSkins caption = "Allow Custom Skins:"
expect chkSkins tooltip = ""
expect chkSkins value = 0
expect lblChkWindow caption = "Run Windowed:"
expect chkWindow tooltip = ""
expect chkWindow value = 1
expect lblChkDedi caption = "Run Dedicated:"
expect chkDedi tooltip = ""
expect chkDedi value = 0
expect lblCboMods caption = "Game Mod:"
expect cboMods tooltip = ""
expect cboMods text = ""
expect lblTxtBlue caption = "Blue Team Password:"
expect txtBlue tooltip = "Limit: 31 Characters"
expect txtBlue text = ""
expect lblTxtRed caption = "Red Team Password:"
expect txtRed tooltip = "Limit: 31 Characters"
expect txtRed text = ""
expect lblChkFFKills caption = "Friendly Fire Kills:"
expect chkFFKills tooltip = ""
expect chkFFKills value = 0
expect lblChkFFTags caption = "Friendly Tags:"
expect chkFFTags tooltip = ""
expect chkFFTags value = 1
expect lblChkFFWarn caption = "Friendly Fire Warning:"
expect chkFFWarn tooltip = ""
expect chkFFWarn value = 0
expect lblChkTeam caption = "Auto Balance:"
expect chkTeam tooltip = ""
expect chkTeam value = 0
expect lblChkTracers caption = "Show Tracers:"
expect chkTracers tooltip = ""
expect chkTracers value = 0
expect lblChkClays caption = "Show Team Clays:"
expect chkClays tooltip = ""
expect chkClays value = 0
expect lblChkAutoRange caption = "Allow Auto Range:"
expect chkAutoRange tooltip = ""
expect chkAutoRange value = 0
expect lblChkMinPing caption = "Enable Min Ping Checking:"
expect chkMinPing tooltip = ""
expect chkMinPing value = 0
expect lblTxtMinPing caption = " - Min. Ping"
expect txtMinPing tooltip = "Limit: 31 Characters"
expect txtMinPing text = 0
expect lblChkMaxPing caption = "Enable Max Ping Checking:"
expect chkMaxPing tooltip = ""
expect chkMaxPing value = 0
expect lblTxtMaxPing caption = " - Max. Ping"
expect txtMaxPing tooltip = "Limit: 31 Characters"
expect txtMaxPing text = 1500
expect lblTxtPort caption = "Game Port:"
expect txtPort tooltip = "Limit: 31 Characters"
expect txtPort text = 17479

expect lblLstKillsNote caption = "(DM + TDM)"
expect lblLstKillsNote left = 7395
expect lblLstScoreNote caption = (Flagball)
expect lblLstZoneNote caption = "(TKOTH + KOTH)"

expect lstSession rows
| Tiodioksi
| LAN IP
expect lstDelay rows
| No Delay
| 1 Minute
| 2 Minutes
| 3 Minutes
expect cboMods no rows
expect lstMax count = 50
expect lstMax row 0 = 1
expect lstMax row 49 = 50
expect lstKills count = 500
expect lstKills row 0 = 1
expect lstKills row 499 = 500
expect lstScore count = 500
expect lstScore row 0 = 1
expect lstScore row 499 = 500
expect lstZone count = 60
expect lstZone row 0 = 1
expect lstZone row 59 = 60
expect lstRespawn count = 121
expect lstRespawn row 0 = 0
expect lstRespawn row 120 = 120
expect lstTime count = 101
expect lstTime row 0 = 0
expect lstTime row 100 = 100

expect txtGametype text = Deathmatch
expect lblAvlMaps caption = "Available Maps"
expect lblSelMaps caption = "Selected Maps"
expect lblMapCnt caption = "Number of Maps: 0"
expect cmdRandomize tooltip = "Randomize Current Maps List"
expect lstAvlMaps no rows
expect lstSelMaps no rows
expect cmdStart caption = "Start Game"
expect cmdSave caption = "Save Settings"
expect cmdLoad caption = "Load Settings"
expect cmdCancel caption = Cancel
expect cmdLeft caption = <
expect cmdRight caption = >
expect cmdLoadMaps caption = "Load Maps"
push cmdCancel
