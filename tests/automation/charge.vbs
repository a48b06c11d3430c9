' Drives the charge component through its contract, as a script would.
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

Sub CheckEqual(what, expected, actual)
    Dim same: same = False
    If VarType(expected) = VarType(actual) Or (IsNumeric(expected) And IsNumeric(actual)) Then
        same = (expected = actual)
    End If
    If same Then
        Check what, True
    Else
        Check what & " (expected """ & expected & """, got """ & actual & """)", False
    End If
End Sub

Dim charge: Set charge = CreateObject("ZendaSwiftill.Tollvane")
Dim fileSystem: Set fileSystem = CreateObject("Scripting.FileSystemObject")
Dim logFile: logFile = charge.LogFilePath & "\" & charge.LogFileName

Const goodCard = "4012888888881881"
Const track = "%B5555555555554444^SMITH/JOHN^3012101000000?"

Function LogText()
    LogText = ""
    If fileSystem.FileExists(logFile) Then
        Dim stream: Set stream = fileSystem.OpenTextFile(logFile, 1)
        If Not stream.AtEndOfStream Then LogText = stream.ReadAll
        stream.Close
    End If
End Function

Function LastLogLine()
    Dim lines: lines = Split(LogText(), vbCrLf)
    LastLogLine = ""
    If UBound(lines) >= 1 Then LastLogLine = lines(UBound(lines) - 1)
End Function

Sub Fill(amount)
    charge.ClearFields
    charge.CardNumber = goodCard
    charge.FirstName = "Mary Ann"
    charge.LastName = "Smith"
    charge.ExpirationDate = "12-" & Year(Now) + 1
    charge.Amount = CCur(amount)
End Sub

' --- what a fresh installation offers

CheckEqual "test mode is on after installation", True, charge.TestMode
CheckEqual "the test mode is a Boolean", vbBoolean, VarType(charge.TestMode)
CheckEqual "the log has its name", "ZENDACARD.LOG", charge.LogFileName
Check "the log folder has no backslash at its end", Right(charge.LogFilePath, 1) <> "\"
Check "the data path is a folder", InStr(charge.Data_Path, ":\") = 2
Check "the location is named", Len(charge.Location) > 0

' --- field objects

Dim expected: expected = Array("x_first_name", 50, "x_last_name", 50, "x_card_num", 19, _
    "x_card_code", 4, "x_amount", 15, "x_zip", 20, "x_tax", 15, "x_auth_code", 6, _
    "x_trans_id", 20, "x_address", 60, "x_city", 40, "x_email", 255, "x_description", 255, _
    "x_invoice_num", 20, "x_po_num", 25)
Dim i
For i = 0 To UBound(expected) Step 2
    CheckEqual "maximum length of " & expected(i), expected(i + 1), _
        charge.TransactionField(expected(i)).cTransactionFields_MaximumLength
Next

charge.TransactionField("x_po_num").cTransactionFields_Value = "PO 17"
CheckEqual "a field keeps its value", "PO 17", _
    charge.TransactionField("x_po_num").cTransactionFields_Value
Dim field: Set field = charge.TransactionField("x_city")
charge.City = "Springfield"
CheckEqual "property and field are the same value", "Springfield", field.cTransactionFields_Value
charge.ClearFields
CheckEqual "ClearFields empties the fields", "", field.cTransactionFields_Value

On Error Resume Next
charge.TransactionField "x_nonsense"
Check "an unknown field raises an error", Err.Number = &H80040BB9
CheckEqual "its source names the component", "Zendacard.Fields", Err.Source
CheckEqual "its description can be read", _
    "The gateway has no field named ""x_nonsense"".", Err.Description
Err.Clear
On Error GoTo 0

' --- named properties

charge.CardNumber = "text 0"
charge.FirstName = "text 1"
charge.LastName = "text 2"
charge.ExpirationDate = "text 3"
charge.StreetAddress = "text 4"
charge.City = "text 5"
charge.State = "text 6"
charge.ZipCode = "text 7"
charge.InvoiceNumber = "text 8"
charge.Description = "text 9"
charge.CustomerEmail = "text 10"
charge.Track1 = "text 11"
CheckEqual "CardNumber keeps its text", "text 0", charge.CardNumber
CheckEqual "FirstName keeps its text", "text 1", charge.FirstName
CheckEqual "LastName keeps its text", "text 2", charge.LastName
CheckEqual "ExpirationDate keeps its text", "text 3", charge.ExpirationDate
CheckEqual "StreetAddress keeps its text", "text 4", charge.StreetAddress
CheckEqual "City keeps its text", "text 5", charge.City
CheckEqual "State keeps its text", "text 6", charge.State
CheckEqual "ZipCode keeps its text", "text 7", charge.ZipCode
CheckEqual "InvoiceNumber keeps its text", "text 8", charge.InvoiceNumber
CheckEqual "Description keeps its text", "text 9", charge.Description
CheckEqual "CustomerEmail keeps its text", "text 10", charge.CustomerEmail
CheckEqual "Track1 keeps its text", "text 11", charge.Track1
charge.Amount = CCur("1234.5678")
CheckEqual "Amount keeps four decimals", CCur("1234.5678"), charge.Amount
CheckEqual "Amount is a currency", vbCurrency, VarType(charge.Amount)
charge.Amount = CCur("-0.05")
CheckEqual "Amount may be negative", CCur("-0.05"), charge.Amount
charge.Tax = "1.50"
CheckEqual "Tax takes a text", CCur("1.50"), charge.Tax
CheckEqual "Tax is a currency", vbCurrency, VarType(charge.Tax)
charge.TaxExempt = True
CheckEqual "TaxExempt keeps true", True, charge.TaxExempt
charge.TaxExempt = False
CheckEqual "TaxExempt keeps false", False, charge.TaxExempt

On Error Resume Next
charge.Tax = "no money"
CheckEqual "a Tax that is no amount is a type mismatch", 13, Err.Number
Err.Clear
charge.ResponseCode = 1
Check "the answer cannot be written", Err.Number <> 0
Err.Clear
charge.NoSuchMember
CheckEqual "an unknown member is an error", 438, Err.Number
Err.Clear
On Error GoTo 0

' --- signing in

Dim operatorName: operatorName = "Pat Operator"
charge.LogLoggedInUser operatorName
Check "the sign-in is logged (by reference)", InStr(LastLogLine(), "Pat Operator") > 0 _
    And InStr(LastLogLine(), "SIGN-IN") > 0
charge.LogLoggedInUser "Sam Operator"
Check "the sign-in is logged (by value)", InStr(LastLogLine(), "Sam Operator") > 0

' --- a charge, its refund, its void

Fill "30.00"
charge.TransactionField("x_card_code").cTransactionFields_Value = "321"
CheckEqual "an ordinary charge is approved", True, charge.AuthorizeAndCapture
CheckEqual "response code", 1, charge.ResponseCode
CheckEqual "reason code", 1, charge.ResponseReasonCode
CheckEqual "sub-code", 0, charge.ResponseSubCode
Check "reason text", Len(charge.ResponseReasonText) > 0
CheckEqual "approval code has six characters", 6, Len(charge.ApprovalCode)
Check "transaction id", Len(charge.TransactionID) > 0
Dim firstId: firstId = charge.TransactionID
CheckEqual "the amount can be read back", CCur(30), charge.Amount
CheckEqual "the name can be read back", "Mary Ann Smith", charge.FirstName & " " & charge.LastName
CheckEqual "the card code is gone", "", _
    charge.TransactionField("x_card_code").cTransactionFields_Value
Check "the log has its line", InStr(LastLogLine(), firstId) > 0 And _
    InStr(LastLogLine(), "APPROVED") > 0 And InStr(LastLogLine(), "****1881") > 0 And _
    InStr(LastLogLine(), "Sam Operator") > 0

Fill "30.00"
CheckEqual "the same charge again is refused", False, charge.AuthorizeAndCapture
CheckEqual "duplicate: code", 3, charge.ResponseCode
CheckEqual "duplicate: reason", 36, charge.ResponseReasonCode
Check "duplicate: the first id is told", InStr(charge.ResponseReasonText, firstId) > 0

charge.ClearFields
CheckEqual "ClearFields empties the answer", 0, charge.ResponseCode
charge.CardNumber = "1881"
charge.Amount = CCur(10)
CheckEqual "a part is refunded", True, charge.Credit(firstId)
charge.ClearFields
charge.CardNumber = "1881"
charge.Amount = CCur("20.01")
CheckEqual "more than is left is not refunded", False, charge.Credit(firstId)
CheckEqual "refund too large: reason", 52, charge.ResponseReasonCode
charge.ClearFields
charge.CardNumber = "2222"
charge.Amount = CCur(1)
CheckEqual "another card is not refunded", False, charge.Credit(firstId)
CheckEqual "another card: reason", 53, charge.ResponseReasonCode

Fill "31.00"
CheckEqual "a charge to void", True, charge.AuthorizeAndCapture
Dim voidId: voidId = charge.TransactionID
charge.ClearFields
charge.Amount = CCur(31)
CheckEqual "it is voided", True, charge.Void(voidId)
CheckEqual "it is voided once", False, charge.Void(voidId)
CheckEqual "already void: reason", 54, charge.ResponseReasonCode
CheckEqual "an unknown transaction is not voided", False, charge.Void("12")
CheckEqual "unknown transaction: reason", 50, charge.ResponseReasonCode
Fill "7001.01"
CheckEqual "a charge that settles at once", True, charge.AuthorizeAndCapture
CheckEqual "a settled transaction is not voided", False, charge.Void(charge.TransactionID)
CheckEqual "settled: reason", 55, charge.ResponseReasonCode

' --- voice authorization

Fill "32.00"
CheckEqual "a voice authorization is captured", True, charge.CaptureVoiceAuth("A1B2C3")
CheckEqual "with its own code", "A1B2C3", charge.ApprovalCode
Fill "33.00"
CheckEqual "an unknown voice code is declined", False, charge.CaptureVoiceAuth("000000")
CheckEqual "voice: code", 2, charge.ResponseCode

' --- a swiped card

charge.ClearFields
charge.Track1 = track
charge.Amount = CCur(34)
CheckEqual "a swiped charge is approved", True, charge.AuthorizeAndCapture
CheckEqual "the card number comes from the track", "4444", Right(charge.CardNumber, 4)
CheckEqual "the expiry comes from the track", "12-2030", charge.ExpirationDate
CheckEqual "the track is gone", "", charge.Track1

' --- declines, errors, held

Sub CheckAnswer(amount, response, reason)
    Fill amount
    CheckEqual amount & " is not approved", False, charge.AuthorizeAndCapture
    CheckEqual amount & ": response", response, charge.ResponseCode
    CheckEqual amount & ": reason", reason, charge.ResponseReasonCode
    Check amount & ": a text for the cashier", Len(charge.ResponseReasonText) > 10
    CheckEqual amount & ": no approval code", "", charge.ApprovalCode
End Sub

CheckAnswer "7002.20", 2, 20
CheckAnswer "7002.21", 2, 21
CheckAnswer "7002.22", 2, 22
CheckAnswer "7002.23", 2, 23
CheckAnswer "7002.27", 2, 27
CheckAnswer "7003.60", 3, 60
CheckAnswer "7003.61", 3, 61
CheckAnswer "7004.80", 4, 80
CheckAnswer "7005.02", 3, 39
CheckAnswer "0.00", 3, 30

Fill "35.00"
charge.CardNumber = "4012888888881882"
CheckEqual "a wrong card number is not approved", False, charge.AuthorizeAndCapture
CheckEqual "wrong card number: reason", 31, charge.ResponseReasonCode
Fill "35.00"
charge.ExpirationDate = "1-2020"
CheckEqual "an expired card is not approved", False, charge.AuthorizeAndCapture
CheckEqual "expired: reason", 33, charge.ResponseReasonCode
Fill "35.00"
charge.ZipCode = "00000"
CheckEqual "a wrong address is not approved", False, charge.AuthorizeAndCapture
CheckEqual "wrong address: reason", 27, charge.ResponseReasonCode

' --- lost answers

Fill "7005.01"
CheckEqual "a lost answer is found by asking again", True, charge.AuthorizeAndCapture
Fill "7005.03"
On Error Resume Next
charge.AuthorizeAndCapture
Check "an unknown outcome is an error, not a decline", Err.Number = &H80040BBB
CheckEqual "its source", "Zendacard.Processor", Err.Source
Check "it says what to do", InStr(Err.Description, "Do not charge the card again") > 0
Err.Clear
On Error GoTo 0
Check "the log says that it is unknown", InStr(LastLogLine(), "UNKNOWN") > 0
Dim second: Set second = CreateObject("ZendaSwiftill.Tollvane")
Check "the next start finds the outcome", InStr(LastLogLine(), "APPROVED") > 0 And _
    InStr(LastLogLine(), "7005.03") > 0

' --- two components on one data folder

second.Amount = CCur(32)
Fill "36.00"
CheckEqual "a charge of the first component", True, charge.AuthorizeAndCapture
CheckEqual "is voided by the second", True, second.Void(charge.TransactionID)

' --- no card data in any file

Dim file, stream, content
For Each file In fileSystem.GetFolder(charge.Data_Path).Files
    If file.Size > 0 Then
        Set stream = fileSystem.OpenTextFile(file.Path, 1)
        content = stream.ReadAll
        stream.Close
        Check "no card number in " & file.Name, InStr(content, goodCard) = 0 And _
            InStr(content, "5555555555554444") = 0
        Check "no track in " & file.Name, InStr(content, "SMITH/JOHN") = 0
    End If
Next

' --- the end

charge.CardNumber = goodCard
charge.Free
CheckEqual "Free forgets the card", "", charge.CardNumber
CheckEqual "Free forgets the answer", "", charge.TransactionID

WScript.Echo "1.." & cases
If failures > 0 Then WScript.Quit 1
