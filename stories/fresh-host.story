title "Saving and loading on a host that has no profile folders yet"

host opens profile 5 target t
host replies
answer cancel
push cmdLoad
expect file dialog "Load Saved Host Settings" in "{root}\profiles\5\settings"
expect dialog pointer = default
host hides
host opens profile 6 target t
answer cancel
tab "Map Settings"
push cmdLoadMaps
expect file dialog "Load saved map list" in "{root}\profiles\6\settings"
expect frmrcBHDGS enabled = true
host hides
host opens profile 7 target t
answer "{root}\profiles\7\settings\a.hsf"
push cmdSave
expect file dialog "Save Host Settings" in "{root}\profiles\7\settings"
expect box Success "Host Settings Saved Successfully."
expect file "{root}\profiles\7\settings\a.hsf" contains "[Settings]{crlf}"
push cmdCancel
