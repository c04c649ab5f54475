' Every member of the class, in every form that a script can send.
Dim robot, plugin
Set robot = CreateObject("rcRobot.clsRobot")
Set plugin = CreateObject("kvrrcBHDGS.clsPlugin")

Class Host
  Public index
  Public target
  Public reply
End Class

' --- results, names in any letter case, values and variables
Dim name
name = "host"
Check "dllVersion", plugin.dllVersion("host"), "1.1.2"
Check "any letter case", plugin.DLLVERSION(name), "1.1.2"
Check "a number as text", plugin.dllversion(7), "1.1.2"
Check "an empty value as text", plugin.dllVersion(Empty), "1.1.2"
Check "asked like a property", plugin.dllVersion((name)), "1.1.2"

' --- a member without a trap that fails is the script's failure, with number and description
Dim fso, root
Set fso = CreateObject("Scripting.FileSystemObject")
root = fso.GetParentFolderName(WScript.FullName)
Sub Untrapped()
  Dim version
  On Error Resume Next
  Check "memory is short", robot.RefuseNextText(), True
  version = plugin.dllVersion("host")
  Check "short of memory", Err.Source & ": " & TakeError(), "kvrrcBHDGS.clsPlugin: 7 Out of memory"
  version = plugin.dllVersion("host")
  Check "memory again", version & " " & TakeError(), "1.1.2 0 "
End Sub
Untrapped
Check "the record is one value", VarType(plugin.GetData()), 36

' --- wrong type, wrong count, unknown names
Sub Wrong()
  On Error Resume Next
  Dim result
  result = plugin.dllVersion()
  Check "no argument", Err.Number, 450
  Err.Clear
  result = plugin.dllVersion("a", "b")
  Check "too many", Err.Number, 450
  Err.Clear
  result = plugin.dllVersion(Null)
  Check "null for a text", Err.Number, 13
  Err.Clear
  result = plugin.dllVersion(Array("a"))
  Check "an array for a text", Err.Number, 13
  Err.Clear
  plugin.LoadInterface 1, 0
  Check "target missing", Err.Number, 450
  Err.Clear
  plugin.LoadInterface "three", 0, Array("a", "b")
  Check "a word for a number", Err.Number, 13
  Err.Clear
  plugin.LoadInterface 3000000000, 0, Array("a", "b")
  Check "beyond 32 bits", Err.Number, 6
  Err.Clear
  plugin.SetPrivis "rights", Nothing, False
  Check "a text for an object", Err.Number, 13
  Err.Clear
  plugin.Start
  Check "no such member", Err.Number, 438
  Err.Clear
  plugin.dllVersion = "2"
  Check "members cannot be put", CBool(Err.Number <> 0), True
  Err.Clear
  plugin.RemoteData
  Check "no reply", Err.Number, 450
  Err.Clear
End Sub
Wrong
Check "nothing of this reached the operator", robot.Boxes(), ""
Check "nor opened the dialog", robot.IsShown(), False

' --- LoadInterface: values, variables, fields of an object; with and without the last argument
Dim values

Function Request(command)
  Request = fso.OpenTextFile(root & "\RCData\reply_kvrBHDGS_" & command & ".txt").ReadAll()
End Function

Set values = New Host
values.index = 3
values.target = Array("my host", "abc")
plugin.LoadInterface 3, 0, Array("my host", "abc")
Check "the query", Request("GetGameSettingsRem"), "Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3"
plugin.LoadInterface values.index, 0, values.target, "profile"
Check "fields", Request("GetGameSettingsRem"), "Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3"
Dim index, target
index = "4"
target = Array("my host", 17)
plugin.loadinterface index, 0, target, name
Check "variables", Request("GetGameSettingsRem"), "Plugin_kvrBHDGS_GetGameSettingsRem_17_VB6_4"
Check "variables are only read", index & target(1) & name, "417host"
ReDim target(5)
target(1) = "x_y"
plugin.LOADINTERFACE 5, 0, target, Empty
Check "a larger array", Request("GetGameSettingsRem"), "Plugin_kvrBHDGS_GetGameSettingsRem_x_y_VB6_5"
Check "no box so far", robot.Boxes(), ""

Dim boxes
plugin.LoadInterface 3, 0, Array("only one")
boxes = robot.Boxes()
CheckHas "one element", boxes, "Error 9: Subscript out of range"
CheckHas "one element", boxes, "Function/Sub: LoadInterface"
CheckHas "the host's own store took it", boxes, "Error Report Sent: Yes"

' --- HideInterface from inside LoadInterface, with and without its argument
robot.Plan plugin, "HideInterface"
plugin.LoadInterface 3, 0, Array("h", "abc")
robot.Plan plugin, "hideinterface", "profile"
plugin.LoadInterface 3, 0, Array("h", "abc")
Check "hidden", robot.IsShown(), False
plugin.HideInterface
plugin.HideInterface name

Check "no box left", robot.Boxes(), ""
Finish
