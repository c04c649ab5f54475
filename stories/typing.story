title "Text boxes take what fits, typed and pasted, whatever their tooltip says"

host opens profile 1 target t
paste txtMessage abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwx
expect txtMessage text = abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvw
erase txtMessage 1
type txtMessage !?
expect txtMessage text = abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuv!
paste txtName abcdefghijklmnopqrstuvwxyz0
expect txtName text = abcdefghijklmnopqrstuvwxyz
paste txtCountry abc
expect txtCountry text = ab
paste txtPassword abcdefghijklmnopq
expect txtPassword text = abcdefghijklmnop
# What is selected makes room, even where the new text ends as the old one did.
paste txtPassword secret-password1
paste txtPassword my-secret-password1
expect txtPassword text = my-secret-passwo
tab "Misc Options"
paste txtBlue abcdefghijklmnopq
expect txtBlue text = abcdefghijklmnop
paste txtRed abcdefghijklmnopq
expect txtRed text = abcdefghijklmnop
paste txtMinPing abcde
expect txtMinPing text = abcd
paste txtMaxPing abcde
expect txtMaxPing text = abcd
paste txtPort abcdef
expect txtPort text = abcde

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
