title "Text boxes take as many characters as they can hold, whatever their tooltip says"

host opens profile 1 target t
type txtName 12345678901234567890123456
type txtName 7
expect txtName text = 12345678901234567890123456
expect txtName tooltip = "Limit: 31 Characters"
erase txtName 25
expect txtName text = 1
type txtCountry DEU
expect txtCountry text = DE
paste txtPassword "a password that is too long"
expect txtPassword text = "a password that "
expect txtMessage tooltip = "Limit: 88 Characters"

tab "Misc Options"
type txtPort 9
expect txtPort text = 17479
erase txtPort 5
type txtPort 123456
expect txtPort text = 12345
type txtRed "no number at all"
expect txtRed text = "no number at all"
expect txtRed tooltip = "Limit: 31 Characters"

# The game type can be read only.
tab "Map Settings"
type txtGametype x
expect txtGametype text = Deathmatch

# A longer text from the remote machine is kept whole, and can be shortened.
reply "Server Name" = "A server whose name is longer than the box takes"
reply "Min Ping" = 1234567
host replies
tab "Server Settings"
expect txtName text = "A server whose name is longer than the box takes"
type txtName x
expect txtName text = "A server whose name is longer than the box takes"
erase txtName 6
expect txtName text = "A server whose name is longer than the box"
expect txtMinPing text = 1234567
push cmdCancel
