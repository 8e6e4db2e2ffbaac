' A host of the component in a script: who is signed in, folders, one listing, and a server that takes everything.
'   cscript host.vbs FOLDER [photos|documents]
' FOLDER ends in "\". The library is registered, for the machine or for the user.
Option Explicit

Class MainWindow
    Public Switch                       ' 1 opens the document manager, anything else the photo window
End Class

Class ToolbarTool
    Public Enabled
End Class

' The rows of a query: one listing, or none.
Class Recordset
    Public RecordCount: Public State: Public BOF: Public EOF
    Public Sub Fill(found)
        RecordCount = Abs(found)        ' True is -1
        State = 1
        BOF = Not found
        MoveFirst
    End Sub
    Public Sub MoveFirst
        EOF = BOF
    End Sub
    Public Sub MoveNext
        EOF = True
    End Sub
    Public Sub Find(criterion)          ' of published photos, which there are not
        EOF = True
    End Sub
    Public Sub Close
        State = 0
    End Sub
    ' A recordset of a database gives an object with a Value here; the value itself will do.
    Public Function Fields(name)
        Select Case name
            Case "ListNum", "SelectedId"
                Fields = 1001
            Case "StreetName"
                Fields = "Main St"
            Case "ListAgentId"
                Fields = "ME"
            Case Else
                Fields = Null
        End Select
    End Function
End Class

' The broker and its three services in one.
Class Server
    Private chunks
    Public Function GetClassInstance(name)
        Set GetClassInstance = Me
    End Function
    Public Function Execute(connection, sql)
        Set Execute = New Recordset
        Execute.Fill InStr(LCase(sql), "listings.listnum = 1001") + InStr(sql, "WHERE Listnum = 1001") > 0
    End Function
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
        BatchUpdate = 0                 ' done
    End Function
    Public Function Update(command, errorText)
        WScript.Echo "documents: " & command
        Update = False                  ' not refused
    End Function
End Class

Class Common
    Public MainForm: Public ServiceBroker: Public HelpFilePath: Public IsOnline
    Public ProgramFolder: Public CityFolder: Public UserFolder
    Public ConnectionName: Public AgentId: Public OfficeId
    Public PhotoDescriptions
    Public Sub EndJob(index)
        WScript.Echo "job " & index & " ended"
        job.UnloadObj
        Set job = Nothing
        WScript.Echo "tool " & tool.Enabled
    End Sub
End Class

Dim host, tool, job, folder
folder = WScript.Arguments(0)
Set host = New Common
Set host.MainForm = New MainWindow
If WScript.Arguments.Count > 1 Then If WScript.Arguments(1) = "documents" Then host.MainForm.Switch = 1
Set host.ServiceBroker = New Server
host.ProgramFolder = folder
host.CityFolder = folder
host.UserFolder = folder
host.HelpFilePath = folder & "help.html"
host.ConnectionName = "SMALL"
host.AgentId = "ME"
host.OfficeId = "OFFICE"
host.IsOnline = True
host.PhotoDescriptions = Array(2110, "Front", 2111, "Rear")
Set tool = New ToolbarTool
tool.Enabled = True
Set job = CreateObject("QorLumarin.clsLumarin")
job.Start host, 7, tool
WScript.Echo "tool " & tool.Enabled
MsgBox "Press OK to end.", 0, "Script host"
If Not job Is Nothing Then job.UnloadObj
WScript.Echo "tool " & tool.Enabled
