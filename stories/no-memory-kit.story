title "A host that offers no memory kit: start-up reports it, and the plug-in works"

kit CreateMemoryKit fails 429 "none"
host opens profile 1 target t
expect trapped SubMain 429 "Component cannot create object: rcMemKit.clsMemKit"
expect dialog shown
host replies
expect txtName text = "Story Server"
push cmdCancel
