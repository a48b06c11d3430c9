' Asks the host data server for its settings and waits until they are closed.
' With the argument "operator" it enters a first operator instead.
Option Explicit
Dim host
Set host = CreateObject("dcZenda32.dcclsZenda32")
If WScript.Arguments.Count = 0 Then
    host.ConfigureSettings
    WScript.Echo "closed"
Else
    host.CreateFirstOperator "Anna", "Keller", "anna", "counter-one"
End If
