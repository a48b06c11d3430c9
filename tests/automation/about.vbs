' Asks the About component as any Automation client would; what it shows needs a hand on the keyboard.
' Usage: cscript //nologo about.vbs
Option Explicit

Dim failures, cases, about
failures = 0
cases = 0

Sub Ok(condition, what)
    cases = cases + 1
    If condition Then
        WScript.Echo "ok " & what
    Else
        WScript.Echo "not ok " & what
        failures = failures + 1
    End If
End Sub

On Error Resume Next
Set about = CreateObject("Norrow_About.clsAbout")
Ok Err.Number = 0, "The component is made by its ProgID " & Err.Description
Err.Clear
about.ShowAbout True, "no window"
Ok Err.Number = 13, "An owner that is no number is a type mismatch (" & Err.Number & ")"
Err.Clear
about.ShowAbout "perhaps", 0
Ok Err.Number = 13, "A text is neither True nor False (" & Err.Number & ")"
Err.Clear
about.ShowNothing
Ok Err.Number = 438, "A member that it does not have is unknown (" & Err.Number & ")"
Err.Clear
Set about = Nothing
WScript.Echo "1.." & cases
If failures > 0 Then WScript.Quit 1
