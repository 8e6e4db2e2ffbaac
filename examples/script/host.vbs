' A host of the component in a script: who is signed in, folders, one listing, and a server that takes everything.
'   cscript host.vbs FOLDER [photos|documents]
' FOLDER ends in "\". The library is registered, for the machine or for the user.
Option Explicit

Class MainWindow
    Public Switch                       ' 1 opens the document manager, anything else the photo window
    Public Sub Prog(first, second)
    End Sub
End Class

Class ToolbarTool
    Public Enabled
End Class

' The rows of one query: one row, or none. A field's Value is that of the current row.
Class Field
    Public Rows
    Public Name
    Public Property Get Value
        Value = Rows.ValueOf(Name)
    End Property
End Class

Class Recordset
    Public RecordCount
    Public State
    Private row
    Public Sub Fill(count)
        RecordCount = count
        row = 0
        State = 1
    End Sub
    Public Property Get EOF
        EOF = (row >= RecordCount)
    End Property
    Public Property Get BOF
        BOF = (RecordCount = 0)
    End Property
    Public Sub MoveFirst
        row = 0
    End Sub
    Public Sub MoveNext
        row = row + 1
    End Sub
    Public Sub Find(criterion)          ' of published photos, which there are not
        row = RecordCount
    End Sub
    Public Sub Close
        State = 0
    End Sub
    Public Function Fields(name)
        Set Fields = New Field
        Set Fields.Rows = Me
        Fields.Name = name
    End Function
    Public Function ValueOf(name)
        Select Case LCase(name)
            Case "listnum", "selectedid"
                ValueOf = 1001
            Case "streetnumber"
                ValueOf = "12"
            Case "streetname"
                ValueOf = "Main St"
            Case "listagentid"
                ValueOf = "ME"
            Case Else
                ValueOf = Null
        End Select
    End Function
End Class

Class Database
    Public Function Execute(connection, sql)
        Set Execute = New Recordset
        Dim found
        found = InStr(sql, "Listings.ListNum = 1001") + InStr(sql, "WHERE Listnum = 1001")
        If found > 0 Then Execute.Fill 1 Else Execute.Fill 0
    End Function
End Class

Class PhotoServer
    Private chunks
    ' With a name and a mode (1 begins, 2 ends, 3 drops), or with a chunk and a mode that is missing.
    Public Sub UploadPhotoFile(nameOrChunk, mode)
        If IsArray(nameOrChunk) Then
            chunks = chunks + 1
        ElseIf mode = 1 Then
            chunks = 0
        ElseIf mode = 2 Then
            WScript.Echo "uploaded, chunks: " & chunks
        End If
    End Sub
    Public Function BatchUpdate(connection, package, kind)
        BatchUpdate = 0
    End Function
End Class

Class DocumentServer
    Public Function Update(command, errorText)
        errorText = "This server keeps no documents."
        Update = True                   ' refused
    End Function
End Class

Class Broker
    Public Function GetClassInstance(name)
        Select Case name
            Case "DbInterface"
                Set GetClassInstance = New Database
            Case "PhotoInterface"
                Set GetClassInstance = New PhotoServer
            Case "DocInterface"
                Set GetClassInstance = New DocumentServer
        End Select
    End Function
End Class

Class Common
    Public MainForm
    Public ServiceBroker
    Public Folder
    Public Ended
    Public Property Get ProgramFolder
        ProgramFolder = Folder
    End Property
    Public Property Get CityFolder
        CityFolder = Folder
    End Property
    Public Property Get UserFolder
        UserFolder = Folder
    End Property
    Public Property Get HelpFilePath
        HelpFilePath = Folder & "help.html"
    End Property
    Public Property Get ConnectionName
        ConnectionName = "SMALL"
    End Property
    Public Property Get AgentId
        AgentId = "ME"
    End Property
    Public Property Get OfficeId
        OfficeId = "OFFICE"
    End Property
    Public Property Get IsOnline
        IsOnline = True
    End Property
    Public Property Get PhotoDescriptions
        PhotoDescriptions = Array(2110, "Front", 2111, "Rear")
    End Property
    Public Sub EndJob(index)
        WScript.Echo "job " & index & " ended"
        job.UnloadObj
        WScript.Echo "tool " & tool.Enabled
        Ended = True
    End Sub
End Class

Dim host, tool, job
Set host = New Common
Set host.MainForm = New MainWindow
Set host.ServiceBroker = New Broker
host.Folder = WScript.Arguments(0)
host.MainForm.Switch = 0
If WScript.Arguments.Count > 1 Then If WScript.Arguments(1) = "documents" Then host.MainForm.Switch = 1
Set tool = New ToolbarTool
tool.Enabled = True
Set job = CreateObject("QorLumarin.clsLumarin")
job.Start host, 7, tool
WScript.Echo "tool " & tool.Enabled
MsgBox "Press OK to end.", 0, "Script host"
If Not host.Ended Then job.UnloadObj
WScript.Echo "tool " & tool.Enabled
