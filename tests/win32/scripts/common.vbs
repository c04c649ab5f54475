' What every VBScript test begins with: checks that are counted, and a closing line that only a
' script without a failure reaches.
Option Explicit
Dim checks, failures
checks = 0
failures = 0

Sub Check(what, actual, expected)
  checks = checks + 1
  If CStr(actual) = CStr(expected) Then Exit Sub
  failures = failures + 1
  WScript.Echo "FAILED " & what & ": " & actual & ", not " & expected
End Sub

Sub CheckHas(what, actual, expected)
  checks = checks + 1
  If InStr(actual, expected) > 0 Then Exit Sub
  failures = failures + 1
  WScript.Echo "FAILED " & what & ": " & actual & ", without " & expected
End Sub

Sub Finish()
  If failures = 0 Then WScript.Echo WScript.ScriptName & ": all " & checks & " checks passed"
  WScript.Quit failures
End Sub
