' The simulated manager: ready-made settings, own ones, faults, the link, and what it refuses.
Option Explicit

Dim control, manager, other, result, fault

Sub Refused(what)
  WScript.Echo what & ": " & Hex(Err.Number) & " " & Err.Description
  Err.Clear
End Sub

' Part of the last answer of a code: the value of a tag.
Function ValueOf(code, tag)
  Dim document, at
  document = manager.LastAnswer(code)
  at = InStr(document, "tag=""" & tag & """ value=""")
  If at = 0 Then
    ValueOf = "none"
  Else
    at = at + Len(tag) + 14
    ValueOf = Mid(document, at, InStr(at, document, """") - at)
  End If
End Function

Set control = CreateObject("HTR60.UserCntrl")
Set manager = CreateObject("HTR60.SimulatedManager")
WScript.Echo manager.PresetNames
WScript.Echo manager.PresetNames()
WScript.Echo "online " & manager.Online
manager.UsePreset "level"
WScript.Echo "init " & control.Init("manager", "", manager)

' Settings, as JSON texts.
manager.UseSettings "{""device"": {""tag"": ""LT-4711"", ""primaryValueType"": ""Level""}, ""timing"": {""answerMs"": 20}}"
WScript.Echo "init anew " & control.Init("manager", "", manager)
manager.ReadRequest "1", "", result
WScript.Echo "result " & result & ", answers before it waits " & manager.LastAnswer(100)
manager.Wait 100
WScript.Echo "tag " & ValueOf(100, "PHYTag") & ", type " & ValueOf(100, "TRDPVType")
manager.Set "{""timing"": {""answerMs"": 0}}"
WScript.Echo "values " & manager.Values("[""link"", ""lcd""]")

' Faults.
fault = manager.BeginFault("{""kind"": ""offline"", ""forMs"": 60000}")
WScript.Echo "fault " & fault & ", online " & manager.Online
manager.ClearFault fault
WScript.Echo "cleared, online " & manager.Online
fault = manager.BeginFault("{""kind"": ""offline""}")
manager.ClearAllFaults
WScript.Echo "fault " & fault & ", all cleared, online " & manager.Online
manager.Online = False
WScript.Echo "taken off, online " & manager.Online
manager.Online = True
WScript.Echo "put on, online " & manager.Online

' What it refuses, it says in a sentence.
On Error Resume Next
manager.UsePreset "nobody"
Refused "preset"
manager.UseSettings "{""device"": {""tag"": 7}}"
Refused "settings"
manager.UseSettings "{"
Refused "no JSON"
manager.Set "{""devices"": {}}"
Refused "member"
manager.BeginFault "{""kind"": ""flood""}"
Refused "fault"
manager.ClearFault 99
Refused "number of a fault"
result = manager.Values("[""nothing""]")
Refused "value"
manager.ReadRequest "one", "", result
Refused "code"
manager.WriteRequest "1", "<ViewData/>", result
Refused "document"
manager.RegisterUI "class", "id", manager, 0, result
Refused "receiver"
manager.Wait
Refused "count"
manager.Wait "long"
Refused "kind"
manager.Nothing1
Refused "name"
On Error Goto 0
WScript.Echo "still " & ValueOf(100, "PHYTag") & ", online " & manager.Online

' Another one knows nothing of it.
Set other = CreateObject("HTR60.SimulatedManager")
WScript.Echo "other: last answer " & other.LastAnswer(100) & ", online " & other.Online
manager.Online = False
WScript.Echo "other: online " & other.Online
WScript.Echo "release " & control.PrepareToRelease()
Set control = Nothing
Set manager = Nothing
Set other = Nothing
WScript.Echo "end"
