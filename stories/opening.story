title "The host lists the plug-in, opens it, opens it again, and closes it while a start is awaited"

expect version = 1.1.2
expect record Name = Quillstart
expect record File = kvrrcBHDGS.dll
expect record Version = 1.1.2
expect record Author = "Tobin Marsh (Aka Kestrel)"
expect record Description = "This Plugin adds the ability to Start and Stop DFBHD via the Trackmoor."
expect record Game = "Delta Force,  V1.5.0.5"
expect record HasInterface = false
expect record ProfileMenu = true
expect record ServerMenu = false
expect record MainMenu = false
expect record ProfileMenuItems = empty
expect record ServerMenuItems = "Start Game|Stop Game"
expect record MainMenuItems = empty
expect record MinRCVer = 1403
expect record MinMemKitVer = 1004
expect record MinFileKitVer = 1107
expect record MinKVRVer = 31001
expect record MinRCCVer = 3505

# Replies that nobody awaits are dropped.
host replies
host replies with 0
host replies with rubbish
expect dialog hidden
expect no box
expect pending = ""

# Without a target nothing is sent and there is no dialog yet.
host opens profile 3 without target
expect trapped LoadInterface 9 "Subscript out of range"
expect dialog hidden
expect no request GetGameSettingsRem

# A kit that cannot write: the pointer goes back, the dialog stays unseen.
kit WriteFile fails 70 "The disk is write-protected"
host opens profile 3 target abc
expect trapped LoadInterface 70 "The disk is write-protected"
expect dialog hidden
expect dialog pointer = default

# An old request is replaced, whatever it held.
file "{root}\RCData\reply_kvrBHDGS_GetGameSettingsRem.txt" = "an old request that was much longer than the new one will ever be"
host opens profile -7 target "a_b c"
expect dialog shown
expect request GetGameSettingsRem = "Plugin_kvrBHDGS_GetGameSettingsRem_a_b c_VB6_-7"
expect pending = LoadForm
expect dialog pointer = busy
expect screen pointer = default
expect Picture1 shown = false
close

# After a cancelled query the reply still counts: it fills a dialog that nobody sees.
expect pending = LoadForm
host replies
expect dialog hidden
expect txtName text contains Server
expect no box
# The next opening shows just that dialog.
host opens profile 1 target t
expect txtName text = "Story Server"
expect dialog pointer = busy

# Opening while it is shown sends the query again and fails to show the dialog twice.
host replies
tab "Map Settings"
double-click lstAvlMaps 0
tab "Server Settings"
paste txtName Kept
host opens profile 2 target other
expect trapped LoadInterface 400 "Form already displayed; it cannot be shown modally"
expect dialog shown
expect dialog pointer = default
expect pending = LoadForm
expect request GetGameSettingsRem = Plugin_kvrBHDGS_GetGameSettingsRem_other_VB6_2
expect txtName text = Kept
# The rotation is a new one now.
tab "Map Settings"
double-click lstAvlMaps 1
expect lstSelMaps rows
| City Madness <DMM_01A.BMS>
push cmdStart
expect request StartGameRem envelope Plugin_kvrBHDGS_StartGameRem_other_VB6_2

# Cancelled while the start is awaited: a late answer is still taken.
expect screen pointer = busy
push cmdCancel
expect dialog hidden
expect screen pointer = default
expect pending = StartGame
host replies with 0
expect box "Failed!" "Failed to initialize game process!"
host replies with 1
expect no box
expect dialog hidden
