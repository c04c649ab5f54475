title "Replies that come when nothing is awaited are dropped"

host replies
host replies with 0
host replies with rubbish
expect dialog hidden
expect no box
expect pending = ""

# After a cancelled query the reply still counts: it fills a dialog that nobody sees.
host opens profile 1 target t
push cmdCancel
expect pending = LoadForm
host replies
expect dialog hidden
expect txtName text = "Story Server"
expect no box

# The next opening shows just that dialog.
host opens profile 1 target t
expect dialog shown
expect txtName text = "Story Server"
expect dialog pointer = busy
push cmdCancel
