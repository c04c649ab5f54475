title "A file kit that fails is reported, and the operator still gets every box"

host opens profile 1 target t
host replies
tab "Map Settings"
double-click lstAvlMaps 0

# Before the request: nothing has changed.
kit CompressString fails 7 "Out of memory"
push cmdStart
expect trapped cmdStart_Error 7 "Out of memory"
expect pending = LoadForm
expect screen pointer = default
expect no request StartGameRem

# While it is written: the pointer and the awaited answer stay.
kit WriteFile fails 61 "Disk full{crlf}Two lines"
push cmdStart
expect trapped cmdStart_Error 61 "Disk full{crlf}Two lines"
expect pending = StartGame
expect screen pointer = busy
expect dialog shown
expect request StartGameRem = ""
push cmdStart
expect request StartGameRem envelope Plugin_kvrBHDGS_StartGameRem_t_VB6_1
host replies with 1

host opens profile 1 target t
# A text with a zero character is shown whole.
kit DecompressString fails 7 "Out of{nul}memory"
host replies
expect log "kvrrcBHDGS.dll, RemoteData, line {line}: error 7, Out of{nul}memory"
expect report "7 | Out of{nul}memory | kvrrcBHDGS.dll 1.1.2 | RemoteData | 0 | {line}"
expect box "DLL Error!" "Error Line: {line}{crlf}Error 7: Out of{u+FFFD}memory{crlf}DLL: kvrrcBHDGS.dll{crlf}Function/Sub: RemoteData{crlf}{crlf}Error Report Sent: Yes"

# A reply that the kit cannot unpack.
kit DecompressString fails -2147467259 "Unspecified error"
host replies
expect trapped RemoteData -2147467259 "Unspecified error"
expect dialog pointer = default
expect txtName text = ""

# Reports that are not taken: the box says so.
kit refuses reports
host replies with x
expect trapped RemoteData 13 "Type mismatch [, ]" not sent
kit works
kit SendErrorReport fails 5 "No line to the server"
host replies with x
expect trapped RemoteData 13 "Type mismatch [, ]" not sent
# What could not be logged is sent all the same.
kit LogError fails 70 "The log is locked"
host replies with x
expect trapped RemoteData 13 "Type mismatch [, ]"
host replies
expect txtName text = "Story Server"
push cmdCancel
