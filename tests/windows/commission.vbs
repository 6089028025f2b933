' Creates the control and the simulated manager, reads the identification, writes a tag, reads it back, lets go.
Option Explicit

Function Padded(text)
  Dim digits, i
  For i = 1 To Len(text)
    digits = digits & Hex(Asc(Mid(text, i, 1)))
  Next
  Do While Len(digits) < 64
    digits = digits & "20"
  Loop
  Padded = digits
End Function

' The request document with two operands.
Function Document(control, first, second)
  Dim none
  none = "None"
  Document = control.DocXML(first, second, none, none, none, none, none, none, none, none, none, none, none, none, _
                            none, none, none, none, none, none, none, none, none, none)
End Function

Dim control, manager, result
Set control = CreateObject("HTR60.UserCntrl")
Set manager = CreateObject("HTR60.SimulatedManager")
WScript.Echo "init " & control.Init("script", "", manager)
manager.Wait 2500
WScript.Echo manager.LastAnswer(9000)
WScript.Echo manager.LastAnswer(100)
manager.WriteRequest "1", Document(control, Padded("TANK 7"), "00"), result
WScript.Echo "write " & result
manager.Wait 200
manager.ReadRequest "1", Document(control, "None", "None"), result
manager.Wait 200
WScript.Echo manager.LastAnswer(100)
WScript.Echo "release " & control.PrepareToRelease()
Set control = Nothing
Set manager = Nothing
