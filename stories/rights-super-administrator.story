title "No rights at all, and a super-administrator's, change nothing"

host opens profile 1 target t
right "Change GS Max Players" = 0
right "Change GS Game Port" = 0
host sets rights of super-administrator
expect lstMax enabled = true
expect txtPort enabled = true
host sets rights
expect lstMax enabled = true
expect chkNova enabled = true

# A super-administrator does not get back what another operator's rights took.
right "Change GS Max Players" = 0
host sets rights
expect lstMax enabled = false
expect chkNova enabled = false
right "Change GS Max Players" = 1
host sets rights of super-administrator
expect lstMax enabled = false
expect chkNova enabled = false
push cmdCancel
