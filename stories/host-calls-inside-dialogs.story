title "Host calls while a box, a file dialog, the missing maps or a report are open, and unloads from there"

file "{root}\profiles\1\settings\a.hsf"
| [Settings]
| txtName=Loaded
| Map0=0[-]0[-]DMK_01A.BMS
| Map1=0[-]0[-]GONE.BMS
file "{root}\profiles\1\settings\bad.hsf"
| [Settings]
| txtName=Half
| Map0=0[-]0[-]DMM_01A.BMS
| lstMax=50
| txtPort=1
host opens profile 1 target t
host replies
tab "Map Settings"
# Rubbish inside a message box is reported from in there.
during box
  host replies with 0
  cannot push cmdCancel
  expect dialog shown
end
push cmdStart
expect box "Error!" "You haven't selected any maps!"
expect trapped RemoteData 9 "Subscript out of range: no {quote}[-]Scorvane[-]{quote} in the reply"
double-click lstAvlMaps 2

# A reply and other rights while a file is chosen: then the file is loaded over them.
during file dialog
  reply "Server Name" = Meanwhile
  reply "Max Players" = 7
  host replies
  right "Change GS Game Port" = 1
  host sets rights
  cannot push cmdStart
end
answer "{root}\profiles\1\settings\a.hsf"
during box
  expect dialog pointer = default
  expect lstSelMaps count = 1
  host opens profile 2 target u
  expect lstSelMaps count = 1
end
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect box kvrrcBHDGS "The following map files do not appear to exist: {crlf}{crlf}GONE.BMS{crlf}"
expect trapped LoadInterface 400 "Form already displayed; it cannot be shown modally"
expect txtName text = Loaded
expect lstMax index = 6
expect lstMax enabled = false
expect request GetGameSettingsRem = Plugin_kvrBHDGS_GetGameSettingsRem_u_VB6_2

# Inside the report of a load that has failed half-way.
during box
  expect dialog pointer = default
  host replies
  host hides
end
answer "{root}\profiles\1\settings\bad.hsf"
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect trapped cmdLoad 380 "Invalid property value"
expect dialog hidden
expect txtName text = Meanwhile

# The answer to a start closes the dialog under each of the three.
host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
during file dialog
  host replies with 1
  expect dialog hidden
end
answer "{root}\profiles\1\settings\a.hsf"
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect no box
expect dialog hidden

host opens profile 1 target t
expect txtName text = ""
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
during box
  host replies with 1
  expect dialog hidden
end
answer "{root}\profiles\1\settings\a.hsf"
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect box kvrrcBHDGS "The following map files do not appear to exist: {crlf}{crlf}GONE.BMS{crlf}"
expect dialog hidden

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
during box
  host replies with 1
end
answer "{root}\profiles\1\settings\bad.hsf"
push cmdLoad
expect file dialog "Load Saved Host Settings"
expect trapped cmdLoad 380 "Invalid property value"
expect dialog hidden

# A dialog that is closed from inside its own handler.
host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
during box
  host replies with 1
end
host replies with rubbish
expect trapped RemoteData 13 "Type mismatch [, ]"
expect dialog hidden

# Hidden and opened again within one event.
host opens profile 1 target t
host replies
tab "Map Settings"
during box
  host hides
  host opens profile 2 target u
  expect dialog shown
  expect dialog pointer = busy
  host replies
  expect dialog pointer = default
end
push cmdStart
expect box Error! "You haven't selected any maps!"
expect dialog hidden
host opens profile 1 target t
expect dialog shown
push cmdCancel
