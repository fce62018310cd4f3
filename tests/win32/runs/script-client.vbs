' A client of the component as an administrator would write it: the task's settings into the
' registry, a run, its outcome. Its argument is the folder with the data.
Option Explicit

Const Scenario = "ScriptClient"
Const Tasks = "HKLM\SOFTWARE\KALDO\Scenarios\ScriptClient\Taches\"

Dim Folder, Task, Name, Action, English
Folder = WScript.Arguments(0)
Configure "Clients"

Set Task = CreateObject("SQLTImpT.ImpTable")
Name = "Clients"
English = 10000
Task.InitializeProperties Name, Scenario, English
Task.SetReportFilePath Folder & "\report.txt"

WScript.Echo "name: " & Task.GetName & ", " & Task.Nom
WScript.Echo "below: " & Task.RegstCle
WScript.Echo "wrapper type: " & Task.GetWrapperType & ", a trigger: " & YesOrNo(Task.IsTrigger)
For Action = 1 To 3
  WScript.Echo "action " & Action & ": " & YesOrNo(Task.IsActionSupported(Action))
Next
WScript.Echo "working mode: " & Task.GetWorkingMode
WScript.Echo "status before a run: " & Task.GetStatus
WScript.Echo "described: " & YesOrNo(InStr(Task.GetTaskDescription, "CLIENTS") > 0)

On Error Resume Next
Task.SetWorkingMode 40000
WScript.Echo "a working mode beyond 16 bits: error " & Err.Number
Err.Clear
Task.Etat = 40000
WScript.Echo "the same by the property: error " & Err.Number
Err.Clear
Task.NoSuchMember
WScript.Echo "a member that isn't there: error " & Err.Number
Err.Clear
On Error GoTo 0
WScript.Echo "working mode afterwards: " & Task.GetWorkingMode

Task.Run = 1
WScript.Echo "status after a run with a rejected line: " & Task.GetStatus
Mend
Task.Run = 2
WScript.Echo "status after the resume: " & Task.GetStatus

Function YesOrNo(Holds)
  If Holds Then YesOrNo = "yes" Else YesOrNo = "no"
End Function

Sub Configure(TaskName)
  Dim Shell, Key
  Set Shell = CreateObject("WScript.Shell")
  Key = Tasks & TaskName & "\"
  Shell.RegWrite Key & "Base Cible", "ClientSource"
  Shell.RegWrite Key & "Table", "client"
  Shell.RegWrite Key & "Dir", Folder
  Shell.RegWrite Key & "Alias", "CLIENTS"
  Shell.RegWrite Key & "FormatFile", 1, "REG_DWORD"
  Shell.RegWrite Key & "NombreColonnes", 3, "REG_DWORD"
  Shell.RegWrite Key & "Etat", 0, "REG_DWORD"
  Shell.RegWrite Key & "Colonnes\1", "3"
  Shell.RegWrite Key & "Colonnes\2", "1"
  Shell.RegWrite Key & "Colonnes\3", "7,7,,/,"
End Sub

' Gives the rejected line a code that is free.
Sub Mend
  Dim Files, Stream, Text
  Set Files = CreateObject("Scripting.FileSystemObject")
  Set Stream = Files.OpenTextFile(Folder & "\CLIENTS.LER", 1)
  Text = Stream.ReadAll
  Stream.Close
  WScript.Echo "rejected: " & Left(Text, InStr(Text, vbCr) - 1)
  Set Stream = Files.OpenTextFile(Folder & "\CLIENTS.LER", 2)
  Stream.Write Replace(Text, "1002;Carla", "1003;Carla")
  Stream.Close
End Sub
