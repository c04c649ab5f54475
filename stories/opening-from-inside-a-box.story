title "Opened from inside a box that belongs to nothing, the dialog takes the operator's input"

# Its windows exist already, and wait for the box like all others.
host opens profile 1 target t
type txtName first
host hides
right "Change GS Max Players" fails
during box
  host opens profile 2 target u
  type txtName x
  tab "Map Settings"
  push cmdCancel
end
host sets rights
expect trapped SetPrivis 13 "Type mismatch"
expect dialog hidden
