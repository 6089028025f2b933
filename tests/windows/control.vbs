' What a script may call of the control, and with what.
Option Explicit

Dim control, manager, result, text, number, nothingAtAll, i

' The request document of two operands; the others are variables handed on by reference, as these two are.
Function Document(first, second)
  Dim a, b, none
  a = first
  b = second
  none = "None"
  Document = control.DocXML(a, b, none, none, none, none, none, none, none, none, none, none, none, none, none, none, _
                            none, none, none, none, none, none, none, none)
  If a <> first Or b <> second Or none <> "None" Then WScript.Echo "FAILED: a variable has changed"
End Function

' What the call has left.
Sub Tell(what)
  If Err.Number = 0 Then
    WScript.Echo what & ": done"
  Else
    WScript.Echo what & ": error " & Hex(Err.Number)
  End If
  Err.Clear
End Sub

Set control = CreateObject("HTR60.UserCntrl.1")
WScript.Echo "texts " & Document("A<&>""'", "")
WScript.Echo "numbers " & Document(7, -1.5)
WScript.Echo "others " & Document(True, Empty)
WScript.Echo "values " & control.DocXML(1, "2", 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, _
                                        22, 23, 24)

On Error Resume Next
text = "kPa"
control.GetFactor1Unit text
Tell "factor 1 by reference"
control.getfactor2unit "bar"
Tell "factor 2 in small letters"
control.GetFactor1Unit 7
Tell "factor 1 of a number"
control.GetFactor1Unit
Tell "factor 1 of nothing"
control.GetFactor2Unit "kPa", "bar"
Tell "factor 2 of two"
control.GetFactor1Unit control
Tell "factor 1 of an object"
result = control.DocXML("1", "2")
Tell "document of two"
result = control.Init("id", "")
Tell "init without a manager"
result = control.Init("id", "", "manager")
Tell "init with a text"
result = control.Init("id", "", 7)
Tell "init with a number"
result = control.Init("id", "", nothingAtAll)
Tell "init with an empty variable"
result = control.PrepareToRelease(1)
Tell "release with an argument"
control.Nothing1
Tell "an unknown name"
control.Init = 7
Tell "a property that is none"
control.UpdateUI 100, ""
Tell "what the receiver has"
On Error Goto 0

WScript.Echo "init with Nothing " & control.Init("id", "", Nothing)
WScript.Echo "init with itself " & control.Init("id", "", control)
WScript.Echo "release of the unattached " & control.PrepareToRelease()

Set manager = CreateObject("HTR60.SimulatedManager.1")
number = 12
WScript.Echo "init with a number as id " & control.Init(number, number, manager)
WScript.Echo "init again " & control.Init("id", "", manager)
control.PrepareToRelease
WScript.Echo "release again " & control.PrepareToRelease()
WScript.Echo "init after release " & control.Init("id", "", manager)
For i = 1 To 20
  Set control = CreateObject("HTR60.UserCntrl")
  If Not control.Init(i, "", manager) Then WScript.Echo "FAILED: " & i
Next
Set control = Nothing
Set manager = Nothing
WScript.Echo "end"
