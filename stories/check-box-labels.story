title "A click on the label of a check box toggles it"

right "Change GS Windowed Mode" = 0
host sets rights
host opens profile 1 target t
push lblChkLoop
expect chkLoop value = 1
push lblChkLoop
expect chkLoop value = 0
push lblChkLoop right
expect chkLoop value = 0
# One that the operator may not change stays.
expect chkWindow enabled = false
push lblChkWindow
expect chkWindow value = 1
push cmdCancel
