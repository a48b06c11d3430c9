' Prints every payment record of the store, one "field=value" a line and a blank line after each.
Option Explicit
Dim host, record, id, name, value
Set host = CreateObject("dcZenda32.dcclsZenda32")
Set record = host.SafeCreateObj(17)
id = 1
On Error Resume Next
Do
    record.GetrecbyIDNumber id
    If Err.Number <> 0 Then Exit Do
    For Each name In Array("Account", "Amount", "Approval", "Expire", "PaidBy", "SoldToLast", _
                           "Street", "TransID", "Zip", "Operator", "Created")
        value = record.Item(name).Value
        If IsNull(value) Then value = ""
        WScript.Echo name & "=" & value
    Next
    WScript.Echo ""
    id = id + 1
Loop
WScript.Echo "records=" & (id - 1)
