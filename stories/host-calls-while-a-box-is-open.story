title "Host calls come in while a message box is open"

host opens profile 1 target t
host replies
during box
  host replies with 0
  reply "Server Name" = "Renamed Meanwhile"
  expect dialog shown
  cannot type txtName x
end
tab "Map Settings"
push cmdStart
expect box "Error!" "You haven't selected any maps!"
# The rubbish was reported from inside that box.
expect trapped RemoteData 9 "Subscript out of range: no {quote}[-]Scorvane[-]{quote} in the reply"

during box
  host replies
  host hides
end
push cmdStart
expect box "Error!" "You haven't selected any maps!"
expect dialog hidden
expect txtName text = "Renamed Meanwhile"

# A dialog that is closed from inside its own handler.
host opens profile 1 target t
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
during box
  host replies with 1
end
host replies with rubbish
expect trapped RemoteData 13 "Type mismatch [, ]"
expect dialog hidden
