title "A host that offers no file kit: start-up says so, and so does everything that needs it"

kit CreateFileKit fails 429 "none"
expect version = 1.1.2
expect box "DLL Error!"
| Error Line: {line}
| Error 429: Component cannot create object: rcFileKit.clsFileKit
| DLL: kvrrcBHDGS.dll
| Function/Sub: SubMain
|
| Error Report Sent: Failed!
host opens profile 1 target t
expect box "DLL Error!"
| Error Line: {line}
| Error 91: Object variable not set
| DLL: kvrrcBHDGS.dll
| Function/Sub: LoadInterface
|
| Error Report Sent: Failed!
expect dialog hidden
expect no log
expect no report
expect record Name = Quillstart
