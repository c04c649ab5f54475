' What the examples for hosts' authors do not show: a script's own class as the rights, its fields,
' variables and larger arrays as arguments, and saving and loading with a host's kit.
Dim robot, plugin, fso, root
Set fso = CreateObject("Scripting.FileSystemObject")
root = fso.GetParentFolderName(WScript.FullName)
Set robot = CreateObject("rcRobot.clsRobot")
Set plugin = CreateObject("kvrrcBHDGS.clsPlugin")

' A collection with a keyed default Item.
Class Rights
  Public Property Get Count()
    Count = 2
  End Property
  Public Default Property Get Item(key)
    Select Case LCase(key)
      Case "change gs session type": Item = "1"
      Case "change gs game port": Item = 0
      Case Else: Err.Raise 5
    End Select
  End Property
End Class

Class Host
  Public index
  Public target
End Class

Sub CheckRequest(what, expected)
  Check what, fso.OpenTextFile(root & "\RCData\reply_kvrBHDGS_GetGameSettingsRem.txt").ReadAll(), _
    "Plugin_kvrBHDGS_GetGameSettingsRem_" & expected
End Sub

Dim values, index, target, name
Set values = New Host
values.index = 3
values.target = Array("my host", "abc")
plugin.LoadInterface values.index, 0, values.target, "profile"
CheckRequest "fields", "abc_VB6_3"
index = "4"
target = Array("my host", 17)
name = "profile"
plugin.SetPrivis New Rights, Nothing, False
robot.Plan plugin, "hideinterface", name
plugin.loadinterface index, 0, target, name
CheckRequest "variables", "17_VB6_4"
Check "variables are only read", index & target(1) & name, "417profile"
Check "rights", robot.Read("lstSession", "enabled") & robot.Read("lstMax", "enabled"), "truefalse"
ReDim target(5)
target(1) = "x_y"
plugin.LOADINTERFACE 5, 0, target, Empty
CheckRequest "a larger array", "x_y_VB6_5"

Sub Wrong()
  On Error Resume Next
  plugin.LoadInterface 1, 0
  Check "target missing", Err.Number, 450
  Err.Clear
  plugin.LoadInterface "three", 0, Array("a", "b")
  Check "a word for a number", Err.Number, 13
  Err.Clear
  plugin.dllVersion = "2"
  Check "members cannot be put", CBool(Err.Number <> 0), True
End Sub
Wrong

robot.Plan robot, "Paste", "txtName", "Night Server"
robot.AnswerFile root & "\saved.hsf"
robot.Plan robot, "Press", "cmdSave"
robot.Plan robot, "Paste", "txtName", "Changed"
robot.AnswerFile root & "\saved.hsf"
robot.Plan robot, "Press", "cmdLoad"
robot.Plan plugin, "HideInterface"
plugin.LoadInterface 3, 0, Array("my host", "abc")
Check "the loaded name", robot.Read("txtName", "text"), "Night Server"
CheckHas "settings file", fso.OpenTextFile(root & "\saved.hsf").ReadAll(), "txtName=Night Server"
Check "boxes", robot.Boxes(), "Success: Host Settings Saved Successfully."
Finish
