title "A query that cannot be sent is reported, and the dialog is not shown"

# Without a target nothing is sent and there is no dialog yet.
host opens profile 3 without target
expect trapped LoadInterface 9 "Subscript out of range"
expect dialog hidden
expect no request GetGameSettingsRem

# A kit that cannot write: the pointer goes back, the dialog stays unseen.
kit WriteFile fails 70 "The disk is write-protected"
host opens profile 3 target abc
expect trapped LoadInterface 70 "The disk is write-protected"
expect dialog hidden
expect dialog pointer = default

# An old request is replaced, whatever it held.
file "{root}\RCData\reply_kvrBHDGS_GetGameSettingsRem.txt" = "an old request that was much longer than the new one will ever be"
host opens profile -7 target "a_b c"
expect dialog shown
expect request GetGameSettingsRem = "Plugin_kvrBHDGS_GetGameSettingsRem_a_b c_VB6_-7"
close
expect dialog hidden
