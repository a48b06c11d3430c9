' Drives the card number checker. It has no ProgID of its own: a script reaches it by its class id.
Option Explicit

Dim cases: cases = 0
Dim failures: failures = 0

Sub Check(what, passed)
    cases = cases + 1
    If passed Then
        WScript.Echo "ok - " & what
    Else
        failures = failures + 1
        WScript.Echo "not ok - " & what
    End If
End Sub

Dim checker
Set checker = GetObject("new:B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3")

Sub CheckNumber(number, acceptable)
    Dim answer: answer = checker.CheckCardNumber(number)
    Check "number ending in " & Right(number, 4) & " of length " & Len(number), _
        VarType(answer) = vbBoolean And answer = acceptable
End Sub

CheckNumber "4111111111111111", True
CheckNumber "4222222222222", True
CheckNumber "5555555555554444", True
CheckNumber "378282246310005", True
CheckNumber "6011111111111117", True
CheckNumber "4111111111111112", False
CheckNumber "4111 1111 1111 1111", False
CheckNumber "411111111111111", False
CheckNumber "0000000000000000", False
CheckNumber "abcd", False
CheckNumber "", False

Dim number: number = "4111111111111111"
Check "a number in a variable", checker.CheckCardNumber(number)

On Error Resume Next
checker.CheckCardNumber
Check "a missing number is an error", Err.Number <> 0
Err.Clear

WScript.Echo "1.." & cases
If failures > 0 Then WScript.Quit 1
