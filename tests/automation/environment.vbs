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
Set host = Nothing
shell.RegWrite hostSettings & "Store", oldStore, "REG_SZ"
WScript.Echo "1.." & cases
If failures > 0 Then WScript.Quit 1
