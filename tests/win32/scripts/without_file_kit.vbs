' The host's file kit is not to be had: its name leads nowhere, or to a library that refuses.
Dim robot, plugin, boxes
Set robot = CreateObject("rcRobot.clsRobot")
Set plugin = CreateObject("kvrrcBHDGS.clsPlugin")
boxes = robot.Boxes()
Check "start-up is reported once", InStr(boxes, vbLf), 0
CheckHas "start-up", boxes, "Error 429: Component cannot create object: rcFileKit.clsFileKit"
CheckHas "start-up", boxes, "Function/Sub: SubMain"
CheckHas "nobody took the report", boxes, "Error Report Sent: Failed!"
Check "dllVersion", plugin.dllVersion("host"), "1.1.2"
plugin.SetPrivis CreateObject("Scripting.Dictionary"), Nothing, False
plugin.HideInterface
Check "no further box", robot.Boxes(), ""
plugin.LoadInterface 3, 0, Array("my host", "abc")
boxes = robot.Boxes()
Check "the dialog is not shown", InStr(boxes, vbLf), 0
CheckHas "opening", boxes, "Function/Sub: LoadInterface"
Finish
