title "While the answer to a start is awaited the dialog tells since when"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0

# By its access key, from wherever the focus is.
alt s
expect lblWaiting shown = true
expect lblWaiting caption contains "Awaiting reply since "
expect screen pointer = busy

# A start that is refused or fails before it is sent changes nothing: the first one is still
# awaited. One that fails while it is sent is not.
tab "Misc Options"
paste txtPort x
push cmdStart
expect box "Error!" "Game Port Field is not numeric!"
expect lblWaiting shown = true
paste txtPort 17479
kit CompressString fails 70 "Permission denied"
push cmdStart
expect trapped cmdStart_Error 70 "Permission denied"
expect lblWaiting shown = true
kit WriteFile fails 70 "Permission denied"
push cmdStart
expect trapped cmdStart_Error 70 "Permission denied"
expect lblWaiting shown = false
push cmdStart
expect lblWaiting shown = true

# An answer that makes no sense is one all the same.
host replies with oops
expect trapped RemoteData 13 "Type mismatch [, ]"
expect lblWaiting shown = false
push cmdStart
expect lblWaiting shown = true
# Opened again, while it is shown or after it was hidden, the dialog awaits settings instead.
host opens profile 1 target t
expect trapped LoadInterface 400 "Form already displayed; it cannot be shown modally"
expect pending = LoadForm
expect lblWaiting shown = false
expect screen pointer = default
host replies with 1
expect trapped RemoteData 9 "Subscript out of range: no {quote}[-]Scorvane[-]{quote} in the reply"
expect dialog shown
tab "Map Settings"
double-click lstAvlMaps 0
push cmdStart
expect lblWaiting shown = true
host hides
host opens profile 1 target t
expect lblWaiting shown = false
host replies
expect screen pointer = default
tab "Map Settings"
double-click lstAvlMaps 0
alt S
expect lblWaiting shown = true
expect lblWaiting left = 7935
alt c
expect dialog hidden
