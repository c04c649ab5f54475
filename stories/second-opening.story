title "Opening the plug-in while it is shown sends the query again and fails to show it twice"

host opens profile 1 target t
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
push cmdCancel
expect dialog hidden
