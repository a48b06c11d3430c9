' Drives the host data server as any Automation client would, on a store of its own.
' Usage: cscript //nologo hostdata.vbs
Option Explicit

Const settingsKey = "HKLM\Software\Norrow Programs\Host Data\"
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
Sub Refused(number, what)
    Dim got, source, text
    got = Err.Number
    source = Err.Source
    text = Err.Description
    Err.Clear
    Ok got = errorBase + number, what & ": is refused by number " & number & " (" & Hex(got) & ")"
    Equal source, "dcZenda32", what & ": names the source"
    Ok Len(text) > 10 And Right(text, 1) <> " ", what & ": says why: " & text
End Sub

Function Setting(name)
    On Error Resume Next
    Setting = shell.RegRead(settingsKey & name)
    If Err.Number <> 0 Then Setting = ""
    Err.Clear
End Function

' A folder name that no other run uses; some script hosts leave the text's ending zero in %TEMP%.
Function OwnFolder()
    Randomize
    OwnFolder = Replace(shell.ExpandEnvironmentStrings("%TEMP%"), Chr(0), "") & "\hostdata-" & CLng(Timer * 100) & "-" & CLng(Rnd * 1000000)
End Function

Sub PointAtOwnStore()
    oldStore = Setting("Store")
    shell.RegWrite settingsKey & "Store", OwnFolder() & "\data.db", "REG_SZ"
End Sub

Sub TestOperators()
    Dim id, answer, token, ben, bens, list
    Equal host.OperatorCount, 0, "A new store has no operators"
    id = host.CreateFirstOperator("Anna", "Keller", "anna", "counter-one")
    Equal id, 1, "The first operator gets a number"
    Equal host.OperatorCount, 1, "The first operator is counted"
    On Error Resume Next
    host.CreateFirstOperator "Eve", "Other", "eve", "counter-six"
    Refused 3022, "A second first operator"
    On Error Goto 0

    Set answer = host.SignIn("anna", "counter-one")
    Equal answer.Succeeded, True, "The right password signs in"
    Equal answer.First, "Anna", "The answer tells the first name"
    Equal answer.Last, "Keller", "The answer tells the last name"
    Equal answer.WaitMilliseconds, 0, "The right password needs no wait"
    token = answer.Token
    Equal Len(token), 32, "The token is long"
    Equal host.HasPrivilege(token, 4), True, "The first operator may take payments"
    Equal host.HasPrivilege(token, 1), True, "The first operator may manage operators"
    Equal host.HasPrivilege(token, 2), False, "Other numbers are not granted"

    ben = host.AddOperator(token, "Ben", "M" & Chr(252) & "ller", "ben", "counter-two")
    Set list = host.Operators(token)
    Equal list.Count, 2, "The list holds both operators"
    Equal list.Item(2).Last, "M" & Chr(252) & "ller", "Names keep their letters"
    Equal list.Item(2).HasPrivilege(4), False, "A new operator holds no privilege"
    host.SetPrivilege token, ben, 4, True
    bens = host.SignIn("BEN", "counter-two").Token
    Equal host.HasPrivilege(bens, 4), True, "A privilege can be given"

    On Error Resume Next
    host.Operators bens
    Refused 3021, "Listing operators without the privilege"
    host.Operators "0123456789abcdef0123456789abcdef"
    Refused 3020, "An invented token"
    host.SetOperatorEnabled token, id, False
    Refused 3025, "Disabling the last manager"
    host.AddOperator token, "Ben", "Two", "Ben", "counter-six"
    Refused 3023, "A user name that is taken"
    host.AddOperator token, "Cy", "Short", "cy", "short"
    Refused 3024, "A short password"
    On Error Goto 0

    host.ResetPassword token, ben, "counter-ten"
    Equal host.SignIn("ben", "counter-ten").Succeeded, True, "A reset password signs in"
    host.SetOperatorEnabled token, ben, False
    host.SignOut token
    On Error Resume Next
    host.Operators token
    Refused 3020, "A token after signing out"
    On Error Goto 0
End Sub

Sub TestWrongPasswords()
    Dim name, password, early, again
    Set name = host.SignIn("nobody", "counter-one")
    Set password = host.SignIn("anna", "counter-six")
    Equal password.Succeeded, False, "A wrong password is refused"
    Equal name.Succeeded, False, "A wrong name is refused"
    Equal name.WaitMilliseconds, password.WaitMilliseconds, "Both answers are the same"
    Equal name.First & name.Last & name.Token, "", "A refusal tells nothing about the operator"
    ' The wait grows until a slow machine cannot sit it out between two calls.
    For again = 1 To 2
        Do
            Set password = host.SignIn("anna", "counter-six")
        Loop Until password.Examined
    Next
    Equal password.WaitMilliseconds, 4000, "Each wrong password doubles the wait"
    Set early = host.SignIn("anna", "counter-one")
    Equal early.Examined, False, "Too early an attempt is not looked at"
    Ok early.WaitMilliseconds > 0, "Too early an attempt says how long to wait"
    Do
        Set early = host.SignIn("anna", "counter-one")
    Loop Until early.Examined
    Equal early.Succeeded, True, "After the wait the right password signs in"
    Equal host.SignIn("ben", "counter-ten").Succeeded, False, "A disabled operator is refused"
End Sub

Sub TestPayments()
    Dim record, field, id, reader
    Set record = host.SafeCreateObj(17)
    record.GetrecbyIDNumber -1
    On Error Resume Next
    record.Item("Zip") = "1"
    Refused 3013, "A field without a record"
    record.Update
    Refused 3013, "Update without AddNew"
    On Error Goto 0
    record.AddNew
    Equal VarType(record.Item("Zip").Value), vbNull, "A field that was not set is Null"
    record.Item("Account") = "************1111"
    record.Item("Amount") = CCur("-25.5")
    record.Item("Approval").Value = "VOID"
    Set field = record.Item("Expire")
    field.Value = "0327"
    record.Item("PaidBy") = "Charge"
    record.Item("SoldToLast") = "O'Neil"
    record.Item("Street").Value = "1 ""Main"" St; DROP TABLE payments"
    record.Item("TransID") = 4711
    record.Item("Zip") = "62701"
    On Error Resume Next
    record.Item("CardCode") = "123"
    Refused 3011, "An unknown field"
    record.Item("Account") = "4012888888881881"
    Refused 3014, "A full card number"
    record.Item("Id") = 5
    Refused 3015, "A field of the store's own"
    record.Item("Amount") = "twelve"
    Equal Err.Number, 13, "An amount that is no number is a type mismatch"
    Err.Clear
    record.GetrecbyIDNumber 123456
    Refused 3012, "An unknown record"
    On Error Goto 0
    record.Update
    id = record.Item("Id").Value
    Equal id, 1, "The first record has number 1"

    Set reader = host.SafeCreateObj(17)
    reader.GetrecbyIDNumber id
    Equal reader.Item("Account").Value, "************1111", "Account is stored"
    Equal reader.Item("Amount").Value, CCur("-25.5"), "Amount is stored as currency"
    Equal reader.Item("Approval").Value, "VOID", "Approval is stored"
    Equal reader.Item("Expire").Value, "0327", "Expire is stored"
    Equal reader.Item("PaidBy").Value, "Charge", "PaidBy is stored"
    Equal reader.Item("SoldToLast").Value, "O'Neil", "SoldToLast is stored"
    Equal reader.Item("Street").Value, "1 ""Main"" St; DROP TABLE payments", "Street is stored"
    Equal reader.Item("TransID").Value, "4711", "A number becomes the field's text"
    Equal reader.Item("Zip").Value, "62701", "Zip is stored"
    Ok Len(reader.Item("Created").Value) = 20, "The time of creation is stored"
    Equal reader.Item("Location").Value, host.Location, "The location is stored"
    Equal reader.Item("Operator").Value, "anna", "The record names the operator whom this client signed in"
    Equal reader.Item("Zip").Name, "Zip", "A field knows its name"

    record.AddNew
    record.Item("PaidBy") = "Charge"
    record.GetrecbyIDNumber -1
    On Error Resume Next
    record.GetrecbyIDNumber id + 1
    Refused 3012, "A half-filled record"
    host.SafeCreateObj 3
    Refused 3010, "An unknown kind of data object"
    On Error Goto 0
End Sub

Sub TestStampedPayment()
    Dim token, record
    token = host.SignIn("anna", "counter-one").Token
    Set record = host.CreateDataObject(17, token)
    record.AddNew
    record.Item("Amount") = 12
    record.Update
    Equal record.Item("Operator").Value, "anna", "A signed-in till's record names the operator"
    Equal record.Item("Amount").Value, CCur(12), "A whole amount becomes currency"
End Sub

Sub TestComparedPayments()
    Dim record, list
    Set record = host.SafeCreateObj(17)
    record.AddNew
    record.Item("TransID") = "1000000077"
    record.Item("Amount") = CCur("-3.5")
    Equal record.UpdateOnce, True, "A payment that is not there is stored"
    record.AddNew
    record.Item("TransID") = "1000000077"
    record.Item("Amount") = CCur("-3.5")
    Equal record.UpdateOnce, False, "The same payment is not stored again"
    record.Item("Amount") = CCur("3.5")
    Equal record.UpdateOnce, True, "Another amount of the same transaction is another payment"
    list = host.StoredPayments(1)
    Equal InStr(list, "1000000077" & vbTab & "35000" & vbLf & "1000000077" & vbTab & "-35000" & vbLf), _
        1, "What was stored is listed, newest first"
End Sub

' A field that is refused is refused alike, and nothing is stored.
Sub RefusedInOneCall(name, value, what)
    Dim record, number, text
    Set record = host.SafeCreateObj(17)
    record.AddNew
    On Error Resume Next
    record.Item(name) = value
    number = Err.Number
    text = Err.Description
    Err.Clear
    host.StorePayment Array("TransID", name), Array("refused", value)
    Ok number <> 0, what & ": is refused by its record: " & text
    Equal Err.Number, number, what & ": has the number that its record gives"
    Equal Err.Source, "dcZenda32", what & ": names the source"
    Equal Err.Description, text, what & ": says what its record says"
    Err.Clear
End Sub

Sub TestPaymentInOneCall()
    Dim names, values, place, record, reader, id
    names = Array("Account", "Amount", "Approval", "Expire", "PaidBy", "SoldToLast", "Street", "transid", "Zip")
    values = Array("************1111", CCur("-25.5"), "VOID", "0327", "Charge", "M" & Chr(252) & "ller", _
        "1 ""Main"" St", 4712, Null)
    Set record = host.SafeCreateObj(17)
    record.AddNew
    For place = 0 To UBound(names)
        record.Item(names(place)) = values(place)
    Next
    record.Update
    id = host.StorePayment(names, values)
    Equal id, record.Item("Id").Value + 1, "A payment in one call gets the next number"
    Set reader = host.SafeCreateObj(17)
    reader.GetrecbyIDNumber id
    For place = 0 To UBound(names) - 1
        Equal reader.Item(names(place)).Value, record.Item(names(place)).Value, _
            "A payment in one call stores " & names(place) & " as its record does"
    Next
    Equal VarType(reader.Item("Zip").Value), vbNull, "Null clears a field in one call"
    Equal reader.Item("Operator").Value, "anna", "A payment in one call names the operator"
    Equal reader.Item("Location").Value, host.Location, "A payment in one call has the location"
    Equal Len(reader.Item("Created").Value), 20, "A payment in one call has its time"

    RefusedInOneCall "CardCode", "123", "An unknown field in one call"
    RefusedInOneCall "Account", "4012888888881881", "A full card number in one call"
    RefusedInOneCall "Id", 5, "A field of the store's own in one call"
    RefusedInOneCall "Amount", "twelve", "An amount that is no number in one call"
    RefusedInOneCall "Zip", String(51, "9"), "A text that is too long in one call"
    On Error Resume Next
    host.StorePayment Array("TransID", "Zip"), Array("refused")
    Equal Err.Number, 5, "A name without a value is refused"
    Err.Clear
    host.StorePayment "TransID", "refused"
    Equal Err.Number, 13, "Two texts are no lists"
    Err.Clear
    On Error Goto 0
    Equal InStr(host.StoredPayments(1), "refused"), 0, "Nothing of a refused payment is stored"
    Equal host.StorePayment(Array(), Array()), id + 1, "A refused payment takes no number"
End Sub

Sub TestTwoClients()
    Dim other, mine, theirs
    Set other = CreateObject("dcZenda32.dcclsZenda32")
    Set mine = host.SafeCreateObj(17)
    Set theirs = other.SafeCreateObj(17)
    mine.AddNew
    theirs.AddNew
    mine.Item("Zip") = "1"
    theirs.Item("Zip") = "2"
    theirs.Update
    mine.Update
    Ok mine.Item("Id").Value <> theirs.Item("Id").Value, "Two clients store two records"
    Equal mine.Item("Zip").Value & theirs.Item("Zip").Value, "12", "Each client keeps its own fields"
End Sub

' The server reads its settings when it starts: the old process must have ended.
Sub RestartWith(folder, store)
    Dim path
    shell.RegWrite settingsKey & "Store", store, "REG_SZ"
    ' A server that is just about to end may refuse; the next one is asked again.
    On Error Resume Next
    Do
        Set host = Nothing
        path = ""
        Set host = CreateObject("dcZenda32.dcclsZenda32")
        path = host.Data_Path
        Err.Clear
    Loop Until path = folder
    On Error Goto 0
End Sub

Sub TestStoresThatCannotBeUsed()
    Dim files, folder, file, count
    Set files = CreateObject("Scripting.FileSystemObject")
    folder = OwnFolder()
    files.CreateFolder folder
    Set file = files.CreateTextFile(folder & "\damaged.db")
    file.Write String(5000, "x")
    file.Close
    RestartWith folder, folder & "\damaged.db"
    On Error Resume Next
    count = host.OperatorCount
    Refused 3002, "A damaged store"
    host.SignIn "anna", "counter-one"
    Refused 3002, "A sign-in on a damaged store"
    Err.Clear
    RestartWith folder & "\damaged.db", folder & "\damaged.db\data.db"
    count = host.OperatorCount
    Refused 3001, "A store in a folder that cannot be"
End Sub

' A test that was cut off by an error counts as failed.
Sub Finished(name)
    Ok Err.Number = 0, name & " ran to its end " & Err.Description
    Err.Clear
End Sub

On Error Resume Next
PointAtOwnStore
Set host = CreateObject("dcZenda32.dcclsZenda32")
Ok InStr(host.Data_Path, "hostdata-") > 0, "Data_Path is the folder of the store: " & host.Data_Path
Ok Len(host.Location) > 0, "Location has a name: " & host.Location
TestOperators
Finished "TestOperators"
TestWrongPasswords
Finished "TestWrongPasswords"
TestPayments
Finished "TestPayments"
TestStampedPayment
Finished "TestStampedPayment"
TestComparedPayments
Finished "TestComparedPayments"
TestPaymentInOneCall
Finished "TestPaymentInOneCall"
TestTwoClients
Finished "TestTwoClients"
TestStoresThatCannotBeUsed
Finished "TestStoresThatCannotBeUsed"
Set host = Nothing
shell.RegWrite settingsKey & "Store", oldStore, "REG_SZ"
WScript.Echo "1.." & cases
If failures > 0 Then WScript.Quit 1
