' The whole job from a script: rights, opening, the reply, a rotation, saving, loading, starting.
Dim robot, plugin, kit, fso, root
Set fso = CreateObject("Scripting.FileSystemObject")
root = fso.GetParentFolderName(WScript.FullName)
Set robot = CreateObject("rcRobot.clsRobot")
Set plugin = CreateObject("kvrrcBHDGS.clsPlugin")
Set kit = CreateObject("rcFileKit.clsFileKit")

' d2VsY29tZQ== "welcome", TmlnaHQgU2VydmVy "Night Server", ZGU= "de", the mods "None|Team Sabre",
' the own map "Shadow Valley <sv.bms>0".
Dim payload, reply
payload = "d2VsY29tZQ==_TmlnaHQgU2VydmVy_ZGU=__2_24_2_1_25_30_30_40_1_1_0_1_Tm9uZXxUZWFtIFNhYnJl___" & _
          "_0_10_0_900_17500_U2hhZG93IFZhbGxleSA8c3YuYm1zPjA="
reply = Len(payload) & "[-]Scorvane[-]" & kit.CompressString(payload)
Check "what the kit packs it unpacks", kit.DecompressString(kit.CompressString(payload), Len(payload)), payload

' --- rights: a dictionary, and a collection of the script's own with a keyed default Item
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

Dim governed
governed = Array("lstSession", "lstMax", "cboMods", "chkWindow", "chkDedi", "chkSkins", "chkNova", "txtPort")
Class Seen
  Public enabled
  Public Sub Look()
    Dim option_name
    enabled = ""
    For Each option_name In governed
      enabled = enabled & Abs(robot.Read(option_name, "enabled") = "true")
    Next
  End Sub
End Class
Dim sight
Set sight = New Seen
Function EnabledOptions()
  robot.Plan sight, "Look"
  robot.Plan plugin, "HideInterface"
  plugin.LoadInterface 3, 0, Array("my host", "abc")
  EnabledOptions = sight.enabled
End Function

Dim dictionary
Set dictionary = CreateObject("Scripting.Dictionary")
plugin.SetPrivis dictionary, dictionary, False
Check "an empty dictionary changes nothing", EnabledOptions(), "11111111"
dictionary.Add "Change GS Max Players", "1"
dictionary.Add "change gs game mod", ""
dictionary.Add "Change GS Game Port", 0
plugin.SetPrivis dictionary, Nothing, True
Check "a super-administrator", EnabledOptions(), "11111111"
plugin.SetPrivis dictionary, Nothing, False
Check "a dictionary", EnabledOptions(), "01100000"
Check "the dictionary stays as it was", dictionary.Count, 3
plugin.SetPrivis New Rights, Nothing, False
Check "a collection of the script's own", EnabledOptions(), "10000000"
Check "no box so far", robot.Boxes(), ""

' --- before anything was asked a reply is dropped; now it fills the dialog, twice the same
robot.Plan plugin, "RemoteData", reply
robot.Plan robot, "Tab", "Map Settings"
robot.Plan robot, "DoubleClickRow", "lstAvlMaps", 0
robot.Plan robot, "Tab", "Server Settings"
robot.AnswerFile root & "\saved.hsf"
robot.Plan robot, "Press", "cmdSave"
robot.Plan robot, "Paste", "txtName", "Changed"
robot.Plan robot, "Tab", "Map Settings"
robot.Plan robot, "DoubleClickRow", "lstAvlMaps", 1
robot.Plan robot, "Tab", "Server Settings"
robot.AnswerFile root & "\saved.hsf"
robot.Plan robot, "Press", "cmdLoad"
robot.Plan robot, "Press", "cmdStart"
robot.Plan plugin, "RemoteData", "0"
plugin.LoadInterface 3, 0, Array("my host", "abc")

Dim boxes
boxes = robot.Boxes()
Check "boxes", boxes, "Success: Host Settings Saved Successfully." & vbLf & "Failed!: Failed to initialize game process!"
Dim saved
saved = fso.OpenTextFile(root & "\saved.hsf").ReadAll()
CheckHas "settings file", saved, "txtName=Night Server"
Check "one map was saved", InStr(saved, "Map1="), 0
Check "one section", UBound(kit.GetIniSection("Settings", root & "\saved.hsf")), 33
Dim start, parts
start = fso.OpenTextFile(root & "\RCData\reply_kvrBHDGS_StartGameRem.txt").ReadAll()
Check "the start request", Left(start, 42), "Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_" & Mid(start, 40, 3)
parts = Split(Mid(start, 40), "[-]Scorvane[-]")
Check "two parts", UBound(parts), 1
payload = kit.DecompressString(parts(1), CLng(parts(0)))
' --- the kit's own failures reach the script with number and description
On Error Resume Next
kit.DecompressString "rubbish", 3
Check "a damaged text", CBool(Err.Number <> 0) And Err.Source = "rcFileKit.clsFileKit", True
CheckHas "a damaged text", Err.Description, "Base64"
Err.Clear
kit.CompressString
Check "a missing argument", Err.Number, 450
Err.Clear
Dim second
Set second = CreateObject("rcRobot.clsRobot")
Check "one robot at a time", CBool(Err.Number <> 0), True
Err.Clear
On Error GoTo 0
Finish
