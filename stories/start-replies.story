title "Answers to a start: 0 is a failure, every other number a success, rubbish changes nothing"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
host replies with "not a number"
expect trapped RemoteData 13 "Type mismatch [, ]"
expect dialog shown
expect pending = StartGame
expect screen pointer = busy
host replies with ""
expect trapped RemoteData 13 "Type mismatch [, ]"
host replies with 99999999999
expect trapped RemoteData 6 "Overflow"
# A settings reply is no answer to a start.
host replies
expect trapped RemoteData 13 "Type mismatch [, ]"
expect dialog shown
during box
  expect dialog shown
  cannot push cmdCancel
end
host replies with " 0.4{tab}{crlf}"
expect box "Failed!" "Failed to initialize game process!"
expect dialog hidden
expect screen pointer = default

host opens profile 1 target t
expect txtName text = ""
host replies
tab "Map Settings"
expect lstSelMaps no rows
double-click lstAvlMaps 0
push cmdStart
host replies with "-4711{lf}"
expect dialog hidden
expect no box
expect no log
