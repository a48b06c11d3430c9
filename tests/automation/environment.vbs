' Drives the environment component and its login object as any Automation client would.
' Usage: cscript //nologo environment.vbs
Option Explicit

Const hostSettings = "HKLM\Software\Norrow Programs\Host Data\"
Const environmentSettings = "HKLM\Software\Norrow Programs\Environment\"
Const errorBase = &H80040000

Dim shell, failures, cases, host, oldStore
failures = 0
cases = 0
Set shell = CreateObject("WScript.Shell")

Sub Ok(condition, what)
    cases = cases + 1
    If condition Then
        WScript.Echo "ok " & what
    Else
        WScript.Echo "not ok " & what
        failures = failures + 1
    End If
End Sub

' The value's type; whole numbers are alike, whatever their size.
Function KindOf(value)
    KindOf = VarType(value)
    If KindOf = vbInteger Then KindOf = vbLong
End Function

Sub Equal(actual, expected, what)
    Dim same
    same = False
    If KindOf(actual) = KindOf(expected) Then same = (actual = expected)
    If same Then
        Ok True, what
    Else
        Ok False, what & ": got """ & actual & """ (" & TypeName(actual) & "), not """ & expected & """"
    End If
End Sub

' To be called right after the statement that should fail, under On Error Resume Next.
Sub Refused(number, source, what)
    Dim got, from, text
    got = Err.Number
    from = Err.Source
    text = Err.Description
    Err.Clear
    Ok got = errorBase + number, what & ": is refused by number " & number & " (" & Hex(got) & ")"
    Equal from, source, what & ": names the source"
    Ok Len(text) > 10, what & ": says why: " & text
End Sub

' A test that was cut off by an error counts as failed.
Sub Finished(name)
    Ok Err.Number = 0, name & " ran to its end " & Err.Description
    Err.Clear
End Sub

Function Setting(name)
    On Error Resume Next
    Setting = shell.RegRead(name)
    If Err.Number <> 0 Then Setting = ""
    Err.Clear
End Function

Sub PointAtOwnStore()
    Dim stamp, folder
    Randomize
    stamp = CLng(Timer * 100) & "-" & CLng(Rnd * 1000000)
    oldStore = Setting(hostSettings & "Store")
    ' Some script hosts leave the text's ending zero in the answer.
    folder = Replace(shell.ExpandEnvironmentStrings("%TEMP%"), Chr(0), "")
    shell.RegWrite hostSettings & "Store", folder & "\environment-" & stamp & "\data.db", "REG_SZ"
End Sub

' An environment component that works with the host data server.
Function Connected()
    Set Connected = CreateObject("prjHabitat.clsHabitatI")
    Set Connected.Options.DCObject = host
End Function

Sub TestCommandLine()
    Dim env, path
    Set env = CreateObject("prjHabitat.clsHabitatI")
    Equal env.DCServer, "", "Without a switch the server is on this computer"
    Ok Len(env.Data_Path) > 3, "Without a switch there is a data path: " & env.Data_Path
    Ok Len(env.Location) > 0, "Without a switch there is a location: " & env.Location
    path = env.Data_Path
    env.INIT " "
    Equal env.Data_Path, path, "A blank command line changes nothing"
    env.INIT "/server:BACKOFFICE /data:""C:\Shop One\Data"" /location:Harbour"
    Equal env.DCServer, "BACKOFFICE", "/server names the computer"
    Equal env.Data_Path, "C:\Shop One\Data", "/data gives the data path"
    Equal env.Location, "Harbour", "/location gives the location"
    On Error Resume Next
    env.INIT "/colour:red"
    Refused 3101, "prjHabitat", "An unknown switch"
    Equal env.Location, "Harbour", "A refused command line changes nothing"
    env.INIT "/data:""C:\Shop"
    Refused 3101, "prjHabitat", "A missing quotation mark"
    env.INIT "-LOCATION:Pier"
    Equal env.Location, "Pier", "A later command line replaces the earlier one"
    Equal env.DCServer, "", "A later command line forgets the earlier switches"
End Sub

Sub TestSettings()
    Dim env
    shell.RegWrite environmentSettings & "Location", "Old Harbour", "REG_SZ"
    shell.RegWrite environmentSettings & "Data Path", "D:\Data", "REG_SZ"
    shell.RegWrite environmentSettings & "Server", "SERVER2", "REG_SZ"
    Set env = CreateObject("prjHabitat.clsHabitatI")
    Equal env.Location, "Old Harbour", "The settings give the location"
    Equal env.Data_Path, "D:\Data", "The settings give the data path"
    Equal env.DCServer, "SERVER2", "The settings name the server's computer"
    env.INIT "/location:Pier /server:"
    Equal env.Location, "Pier", "The command line wins over the settings"
    Equal env.DCServer, "", "An empty switch wins over the settings"
    shell.RegWrite environmentSettings & "Location", "", "REG_SZ"
    shell.RegWrite environmentSettings & "Data Path", "", "REG_SZ"
    shell.RegWrite environmentSettings & "Server", "", "REG_SZ"
End Sub

Sub TestHostDataServer()
    Dim env
    Set env = CreateObject("prjHabitat.clsHabitatI")
    Ok env.Options.DCObject Is Nothing, "At first there is no host data server"
    On Error Resume Next
    env.SafeCreateObj 17
    Refused 3103, "prjHabitat", "A data object without a server"
    env.SafeCreateUIObj(12).Login
    Refused 3103, "prjHabitat", "A login without a server"
    env.SafeCreateUIObj 11
    Refused 3102, "prjHabitat", "An unknown kind of object"
    Err.Clear
    On Error Goto 0
    Set env.Options.DCObject = host
    Equal env.Options.DCObject.OperatorCount, 0, "The host data server is kept"
    Equal env.Data_Path, host.Data_Path, "The data path is the server's"
    Equal env.Location, host.Location, "The location is the server's"
    Set env.Options.DCObject = Nothing
    Ok env.Options.DCObject Is Nothing, "The host data server can be taken away"
    env.Options.DCObject = host
    Ok Not (env.Options.DCObject Is Nothing), "The host data server can be assigned without Set"
    On Error Resume Next
    env.SafeCreateObj 3
    Refused 3010, "dcZenda32", "An unknown kind of data object"
End Sub

Sub TestLogin()
    Dim env, login, number, token, ben
    host.CreateFirstOperator "Anna", "Keller", "anna", "counter-one"
    Set env = Connected()
    Equal env.CurrentUser.Item.First & env.CurrentUser.Item.Last, "", "At first nobody is signed in"
    Equal env.HasSecurity(4), False, "Nobody holds no privilege"
    Set login = env.SafeCreateUIObj(12)
    Equal login.LoginAs("nobody", "counter-one"), False, "A wrong name is refused"
    Equal env.HasSecurity(4), False, "A refused sign-in gives no privilege"
    Equal login.LoginAs("anna", "counter-one"), True, "The right password signs in"
    Equal login.Login, True, "Login is true at once when an operator is signed in"
    Equal env.CurrentUser.Item.First, "Anna", "The current user has a first name"
    Equal env.CurrentUser.Item.Last, "Keller", "The current user has a last name"
    Equal env.HasSecurity(4), True, "A privilege is asked for by value"
    number = 4
    Equal env.HasSecurity(number), True, "A privilege is asked for by reference"
    number = CLng(2)
    Equal env.HasSecurity(number), False, "A privilege that is not held"

    token = host.SignIn("anna", "counter-one").Token
    ben = host.AddOperator(token, "Ben", "Moss", "ben", "counter-two")
    Equal login.LoginAs("ben", "counter-two"), True, "Another operator takes over"
    Equal env.CurrentUser.Item.First, "Ben", "The current user is the new one"
    Equal env.HasSecurity(4), False, "Without the privilege the answer is no"
    host.SetPrivilege token, ben, 4, True
    Equal env.HasSecurity(4), True, "A privilege counts from the moment it is given"
    host.SetOperatorEnabled token, ben, False
    Equal env.HasSecurity(4), False, "A disabled operator holds no privilege any more"
    login.Logout
    Equal env.CurrentUser.Item.First, "", "After signing out nobody is the current user"
End Sub

Sub TestPayments()
    Dim env, record
    Set env = Connected()
    Set record = env.SafeCreateObj(17)
    record.AddNew
    record.Update
    Equal VarType(record.Item("Operator").Value), vbNull, "Without a login a record names no operator"
    env.SafeCreateUIObj(12).LoginAs "anna", "counter-one"
    Set record = env.SafeCreateObj(17)
    record.GetrecbyIDNumber -1
    record.AddNew
    record.Item("Amount").Value = CCur("12.34")
    record.Item("PaidBy").Value = "Charge"
    record.Update
    Equal record.Item("Operator").Value, "anna", "A record names the signed-in operator"
    Equal record.Item("Amount").Value, CCur("12.34"), "A record is stored through the environment"
    Set env.Options.DCObject = Nothing
    Equal env.CurrentUser.Item.First, "", "Taking the server away signs out"
End Sub

' Two records get the same; one gathers it in the environment, the other one is the server's.
Sub TestDraft()
    Dim env, draft, direct, name, id, text, number
    Set env = Connected()
    Set draft = env.Options.DCObject.SafeCreateObj(17)
    Set direct = host.SafeCreateObj(17)
    draft.GetrecbyIDNumber -1
    direct.GetrecbyIDNumber -1
    On Error Resume Next
    draft.Item("Zip") = "1"
    Refused 3013, "dcZenda32", "A field without a record"
    draft.Update
    Refused 3013, "dcZenda32", "Update without AddNew"
    env.Options.DCObject.SafeCreateObj(17).Update
    Refused 3013, "dcZenda32", "Update of a record that was never used"
    env.Options.DCObject.SafeCreateObj(17).GetrecbyIDNumber 123456
    Refused 3012, "dcZenda32", "An unknown record"
    On Error Goto 0

    env.SafeCreateUIObj(12).LoginAs "anna", "counter-one"
    Set draft = env.Options.DCObject.SafeCreateObj(17)
    Set direct = host.SafeCreateObj(17)
    draft.AddNew
    direct.AddNew
    Fill draft
    Fill direct
    direct.Update
    draft.Update
    id = direct.Item("Id").Value
    Equal draft.Item("Id").Value, id + 1, "A stored draft is positioned on its record"
    For Each name In Array("Account", "Amount", "Approval", "Expire", "PaidBy", "SoldToLast", _
        "Street", "TransID", "Operator", "Location")
        Equal draft.Item(name).Value, direct.Item(name).Value, "A draft stores " & name & " as the server's record does"
    Next
    Equal VarType(draft.Item("Zip").Value), vbNull, "A draft leaves a field Null that was not set"
    Equal draft.Item("zip").Name, "Zip", "A draft's field knows its name"
    On Error Resume Next
    draft.Item("Zip") = "1"
    Refused 3015, "dcZenda32", "A field of a stored draft"
    On Error Goto 0

    Set draft = env.Options.DCObject.SafeCreateObj(17)
    draft.AddNew
    draft.Item("TransID") = 4713
    Equal draft.Item("TransID").Value, "4713", "A draft tells a field as the server's record does"
    draft.Item("Amount") = CCur(1)
    Equal draft.UpdateOnce, True, "UpdateOnce stores a payment that is not there"
    draft.AddNew
    draft.Item("TransID") = 4713
    draft.Item("Amount") = CCur(1)
    Equal draft.UpdateOnce, False, "UpdateOnce does not store it again"
End Sub

Sub Fill(record)
    record.Item("Account") = "************1111"
    record.Item("Amount") = CCur("-25.5")
    record.Item("Approval").Value = "VOID"
    record.Item("Expire").Value = "0327"
    record.Item("PaidBy") = "Cash"
    record.Item("PaidBy") = "Charge"
    record.Item("SoldToLast").Value = "M" & Chr(252) & "ller"
    record.Item("Street").Value = "1 ""Main"" St"
    record.Item("TransID").Value = 4711
End Sub

' A refused field: the server's own record tells it when it is set, a draft when it is stored.
Sub RefusedDraft(name, value, what)
    Dim env, draft, direct, number, source, text, before
    Set env = Connected()
    before = host.StoredPayments(1)
    Set direct = host.SafeCreateObj(17)
    direct.AddNew
    On Error Resume Next
    direct.Item(name).Value = value
    number = Err.Number
    source = Err.Source
    text = Err.Description
    Err.Clear
    Set draft = env.Options.DCObject.SafeCreateObj(17)
    draft.AddNew
    draft.Item("TransID").Value = "refused"
    draft.Item("Amount").Value = CCur(1)
    draft.Item(name).Value = value
    draft.Update
    Ok number <> 0, what & ": is refused: " & text
    Equal Err.Number, number, what & ": a draft gives the same number"
    Equal Err.Source, source, what & ": a draft gives the same source"
    Equal Err.Description, text, what & ": a draft says the same"
    Err.Clear
    Equal host.StoredPayments(1), before, what & ": a draft stores nothing"
End Sub

Sub TestRefusedDrafts()
    Dim env, draft
    RefusedDraft "CardCode", "123", "An unknown field"
    RefusedDraft "Account", "4012888888881881", "A full card number"
    RefusedDraft "Id", 5, "A field of the store's own"
    RefusedDraft "Amount", "twelve", "An amount that is no number"
    RefusedDraft "Amount", CDbl("1E300"), "An amount that is too large"
    RefusedDraft "Zip", String(51, "9"), "A text that is too long"
    Set env = Connected()
    Set draft = env.Options.DCObject.SafeCreateObj(17)
    draft.AddNew
    On Error Resume Next
    draft.Item("Zip") = Array("1", "2")
    Equal Err.Number, 13, "What is no plain value is looked at when it is set"
    Err.Clear
    On Error Goto 0
    draft.AddNew
    draft.Item("Zip") = "1"
    Equal draft.Item("Zip").Value, "1", "A draft of the server's own record goes on"
    Set draft = env.Options.DCObject.SafeCreateObj(17)
    draft.AddNew
    draft.Item("Zip") = String(51, "9")
    On Error Resume Next
    draft.Update
    Refused 3014, "dcZenda32", "A draft with a wrong field"
    On Error Goto 0
    draft.Item("Zip") = "9"
    draft.Update
    Equal draft.Item("Zip").Value, "9", "A draft can be put right and stored"
End Sub

Sub TestSameServerAgain()
    Dim env, front
    Set env = Connected()
    env.SafeCreateUIObj(12).LoginAs "anna", "counter-one"
    Set front = env.Options.DCObject
    Set env.Options.DCObject = front
    Equal env.CurrentUser.Item.First, "Anna", "What the environment offered is no other server"
    Set env.Options.DCObject = host
    Equal env.CurrentUser.Item.First, "Anna", "The same server does not sign out"
    Set env.Options.DCObject = Nothing
    Ok Len(front.Location) > 0, "An offered server outlives its place in the environment"
End Sub

' The server reads its settings when it starts, and it ends with its last client.
Sub TestEndOfServer()
    Dim env, record, folder, path
    Set env = Connected()
    Set record = env.Options.DCObject.SafeCreateObj(17)
    record.AddNew
    record.Item("Zip") = "1"
    record.Update
    Set record = Nothing
    Set env = Nothing
    folder = host.Data_Path & "-2"
    shell.RegWrite hostSettings & "Store", folder & "\data.db", "REG_SZ"
    On Error Resume Next
    Do
        Set host = Nothing
        path = ""
        Set host = CreateObject("dcZenda32.dcclsZenda32")
        path = host.Data_Path
        Err.Clear
    Loop Until path = folder
    On Error Goto 0
    Equal path, folder, "The server ends when everything was given back"
End Sub

Sub TestDeadServer()
    Dim env, record, number, text, path
    Set env = Connected()
    Set record = env.Options.DCObject.SafeCreateObj(17)
    record.AddNew
    record.Item("Zip") = "1"
    shell.Run "taskkill /f /im dcZenda32.exe", 0, True
    On Error Resume Next
    path = host.Data_Path
    number = Err.Number
    text = Err.Description
    Err.Clear
    record.Update
    Ok number <> 0, "A server that is gone does not answer: " & Hex(number) & " " & text
    Equal Err.Number, number, "A draft for a server that is gone has the number of any call"
    Equal Err.Description, text, "A draft for a server that is gone has the words of any call"
    Err.Clear
    env.Options.DCObject.Location
    Equal Err.Number, number, "What is passed on to a server that is gone has the number of any call"
    Err.Clear
End Sub

On Error Resume Next
PointAtOwnStore
TestCommandLine
Finished "TestCommandLine"
TestSettings
Finished "TestSettings"
Set host = CreateObject("dcZenda32.dcclsZenda32")
TestHostDataServer
Finished "TestHostDataServer"
TestLogin
Finished "TestLogin"
TestPayments
Finished "TestPayments"
TestDraft
Finished "TestDraft"
TestRefusedDrafts
Finished "TestRefusedDrafts"
TestSameServerAgain
Finished "TestSameServerAgain"
TestEndOfServer
Finished "TestEndOfServer"
TestDeadServer
Finished "TestDeadServer"
Set host = Nothing
shell.RegWrite hostSettings & "Store", oldStore, "REG_SZ"
WScript.Echo "1.." & cases
If failures > 0 Then WScript.Quit 1
