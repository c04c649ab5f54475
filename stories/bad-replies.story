title "Bad replies are reported, harm nothing, and the next good one is taken"

host opens profile 1 target t
tab "Map Settings"
reply map Deathmatch "Harbour Yard" XDM_HARB.BMS
host replies
expect lstAvlMaps count = 10

# No frame, no length, damaged text, wrong length: nothing is applied.
host replies with ""
expect trapped RemoteData 13 "Type mismatch [, ]"
host replies with 12
expect trapped RemoteData 9 "Subscript out of range: no {quote}[-]Scorvane[-]{quote} in the reply"
host replies with "twelve[-]Scorvane[-]text"
expect trapped RemoteData 13 "Type mismatch [, ]"
host replies with "3000000000[-]Scorvane[-]text"
expect trapped RemoteData 6 "Overflow"
expect lstAvlMaps count = 10
expect txtName text = "Story Server"

# Too few fields: the machine's maps are forgotten, the list shows it with the next refresh.
host replies with payload "a_b_c"
expect trapped RemoteData 9 "Subscript out of range: the reply has no field 25, only 3"
expect lstAvlMaps count = 10
push cmdLeft
push cmdRight
expect lstAvlMaps count = 9

# The fixed values break off.
reply has 30 fields
host replies
expect trapped RemoteData 9 "Subscript out of range: the reply has no field 30, only 30"
reply new

# Each failing field ends the reply there; what came before it stays.
reply "Server Name" = "Second Server"
reply raw 5 = many
reply "Game Port" = 1
host replies
expect trapped RemoteData 13 "Type mismatch [1, ]"
expect txtName text = "Second Server"
expect lstMax index = 15
expect txtPort text = 17479
expect dialog pointer = default

# The report of a type mismatch shows two fields of the reply.
reply raw 5 = 16
reply raw 20 = maybe
reply raw 14 = 0
reply fixed "Windowed" = yes
host replies
expect trapped RemoteData 13 "Type mismatch [0, 1]"
reply new

# No mods: the first one cannot be selected. The list still has those of the replies before.
reply no mods
host replies
expect no box
push cmdCancel
host opens profile 1 target t
host replies
expect trapped RemoteData 380 "Invalid property value"
expect cboMods no rows
expect dialog pointer = default

# Texts that are no Base64.
reply raw 1 = "***"
host replies
expect trapped RemoteData 5 "Base64 text: the length 3 is not a multiple of 4"

# Fields beyond those that are known are passed over.
reply new
reply "Server Name" = "Third Server"
reply fixed "Mod" = None
reply raw 40 = extra
host replies
expect txtName text = "Third Server"
expect no box
push cmdCancel
