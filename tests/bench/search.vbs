' Looks payments up by their numbers, as a client of the host data server: how many, the largest
' number, and prints the milliseconds of one look-up.
Option Explicit

Dim server, record, count, largest, begun, i, number
count = CLng(WScript.Arguments(0))
largest = CLng(WScript.Arguments(1))
Set server = CreateObject("dcZenda32.dcclsZenda32")
Set record = server.SafeCreateObj(17)
number = 1
begun = Timer
For i = 1 To count
    ' A step that meets every number before it comes back to the first.
    number = (number + 7919) Mod largest
    record.GetrecbyIDNumber number + 1
    If record.Item("Id").Value <> number + 1 Then WScript.Quit 1
Next
WScript.Echo CLng((Timer - begun) * 1000000 / count)
