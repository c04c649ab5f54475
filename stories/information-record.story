title "The host lists the plug-in by its information record before it opens it"

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
expect dialog hidden
expect no request GetGameSettingsRem
