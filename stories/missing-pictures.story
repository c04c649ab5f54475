title "Without its button pictures the dialog reports the failure and opens with what was built"

file "{root}\imgs\butup.gif" missing
host opens profile 1 target t
expect trapped FormLoad_ERROR 53 "File not found"
# The dialog opens with what was built: one face, no captions, no number lists.
expect dialog shown
expect lstMax count = 0
expect lstSession count = 2
# What has no picture is not there.
expect cmdStartImg shown = false
cannot push cmdStartImg
close
expect dialog hidden

file "{root}\imgs\butup.gif" = "this is no picture"
host opens profile 1 target t
expect trapped FormLoad_ERROR 481 "Invalid picture"
close
