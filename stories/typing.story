title "Text boxes take what fits, typed and pasted, whatever their tooltip says"

host opens profile 1 target t
paste txtMessage abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwx
expect txtMessage text = abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvw
erase txtMessage 1
type txtMessage !?
expect txtMessage text = abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuv!
paste txtName abcdefghijklmnopqrstuvwxyz0
expect txtName text = abcdefghijklmnopqrstuvwxyz
erase txtName 1
type txtName !?
expect txtName text = abcdefghijklmnopqrstuvwxy!
paste txtCountry abc
expect txtCountry text = ab
erase txtCountry 1
type txtCountry !?
expect txtCountry text = a!
paste txtPassword abcdefghijklmnopq
expect txtPassword text = abcdefghijklmnop
erase txtPassword 1
type txtPassword !?
expect txtPassword text = abcdefghijklmno!
# What is selected makes room, even where the new text ends as the old one did.
paste txtPassword secret-password1
paste txtPassword my-secret-password1
expect txtPassword text = my-secret-passwo
tab "Misc Options"
paste txtBlue abcdefghijklmnopq
expect txtBlue text = abcdefghijklmnop
erase txtBlue 1
type txtBlue !?
expect txtBlue text = abcdefghijklmno!
paste txtRed abcdefghijklmnopq
expect txtRed text = abcdefghijklmnop
erase txtRed 1
type txtRed !?
expect txtRed text = abcdefghijklmno!
paste txtMinPing abcde
expect txtMinPing text = abcd
erase txtMinPing 1
type txtMinPing !?
expect txtMinPing text = abc!
paste txtMaxPing abcde
expect txtMaxPing text = abcd
erase txtMaxPing 1
type txtMaxPing !?
expect txtMaxPing text = abc!
paste txtPort abcdef
expect txtPort text = abcde
erase txtPort 1
type txtPort !?
expect txtPort text = abcd!

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
