' Tries the service objects of a host, as they are registered here, and tells what does not hold:
'   cscript //nologo check-kits.vbs
' Ends with "The kits keep the contract." and exit code 0, or with exit code 1. It leaves nothing
' behind but the host's own log and, where reports are sent, one report that says it is a trial.
Option Explicit
Dim faults
faults = 0

Sub Fault(what)
  faults = faults + 1
  WScript.Echo what
End Sub

' A failure of the last statement is told; True when there was none.
Function Worked(operation)
  Worked = (Err.Number = 0)
  If Not Worked Then Fault operation & " fails: " & Err.Number & " " & Err.Description
  Err.Clear
End Function

Sub Expect(what, actual, expected)
  If CStr(actual) <> CStr(expected) Then Fault what & " is """ & actual & """, not """ & expected & """"
End Sub

' What automation clients call the error object.
Class Trial
  Public Property Get Number()
    Number = 5
  End Property
  Public Property Get Description()
    Description = "A trial of the kits, no failure"
  End Property
  Public Property Get Source()
    Source = "kvrrcBHDGS.dll"
  End Property
End Class

Sub TryFileKit(kit, files, folder)
  On Error Resume Next
  Dim path, text, packed, unpacked, lines, pair, trial_error, procedure, line, report, is_sent

  path = folder & "\request.txt"
  kit.WriteFile path, "Plugin_one"
  kit.WriteFile path, "Plugin_two"
  If Worked("WriteFile") Then
    Expect "What WriteFile wrote", files.OpenTextFile(path).ReadAll(), "Plugin_two"
    Err.Clear
  End If

  For Each text In Array("a", "d2VsY29tZQ==_1_2", Replace(Space(5000), " ", "x"), "Stra" & Chr(223) & "e")
    packed = kit.CompressString(text)
    If Worked("CompressString") Then
      unpacked = kit.DecompressString(packed, Len(text))
      If Worked("DecompressString") Then Expect "A text packed and unpacked", unpacked, text
    End If
  Next

  path = folder & "\settings.hsf"
  kit.WriteIniKey "Settings", "txtName", "Untitled", path
  kit.WriteIniKey "Settings", "lstMax", "15", path
  kit.WriteIniKey "Settings", "txtName", "Night Server", path
  If Worked("WriteIniKey") Then
    lines = kit.GetIniSection("Settings", path)
    If Worked("GetIniSection") Then
      If Not IsArray(lines) Then
        Fault "GetIniSection gives no array for a section that is there"
      ElseIf UBound(lines) <> 2 Then
        Fault "GetIniSection of two keys has " & (UBound(lines) + 1) & " elements, not two and one more"
      Else
        Expect "The first key", lines(0), "txtName=Night Server"
        Expect "The second key", lines(1), "lstMax=15"
      End If
    End If
    lines = kit.GetIniSection("Nobody", path)
    If Worked("GetIniSection of a missing section") And IsArray(lines) Then
      Fault "GetIniSection gives an array for a section that is not there"
    End If
  End If

  pair = kit.ParseIniKey("txtName=a=b", True)
  If Worked("ParseIniKey with true") Then
    Expect "The key", pair(0), "txtName"
    Expect "The value", pair(1), "a=b"
    Err.Clear
  End If
  text = kit.ParseIniKey("Map0=0[-]0[-]DMK_01A.BMS", False)
  If Worked("ParseIniKey with false") Then Expect "The value alone", text, "0[-]0[-]DMK_01A.BMS"

  Set trial_error = New Trial
  procedure = "TrialOfKits"
  line = CLng(1)
  kit.LogError "kvrrcBHDGS.dll", procedure, trial_error, line
  Worked "LogError"
  report = Array("5", "A trial of the kits, no failure", "kvrrcBHDGS.dll 1.1.2", procedure, "0", line)
  is_sent = kit.SendErrorReport(report)
  If Worked("SendErrorReport") Then
    If VarType(is_sent) <> vbBoolean And VarType(is_sent) <> vbNull Then
      Fault "SendErrorReport gives neither a boolean nor null"
    End If
  End If
End Sub

Sub Main()
  Dim kit, memory_kit, files, folder
  On Error Resume Next
  Set kit = CreateObject("rcFileKit.clsFileKit")
  If Err.Number <> 0 Then Fault "rcFileKit.clsFileKit cannot be created: " & Err.Description
  Err.Clear
  Set memory_kit = CreateObject("rcMemKit.clsMemKit")
  If Err.Number <> 0 Then Fault "rcMemKit.clsMemKit cannot be created: " & Err.Description
  Err.Clear
  If IsEmpty(kit) Then Exit Sub
  Set files = CreateObject("Scripting.FileSystemObject")
  folder = files.GetSpecialFolder(2) & "\check-kits"
  If Not files.FolderExists(folder) Then files.CreateFolder folder
  Err.Clear
  TryFileKit kit, files, folder
  files.DeleteFolder folder, True
End Sub

Main
If faults = 0 Then WScript.Echo "The kits keep the contract."
If faults > 0 Then WScript.Quit 1
