' A complete request of a script.
Option Explicit
Dim parser, script, index, errorText

' The server registers no name for scripts. The class identifier creates the object.
Set parser = GetObject("new:{1D46AEC2-C503-4983-9AB5-183DB6D45D68}")
parser.initialize

' A formula of the older language becomes JavaScript.
script = parser.convert("IIF(A>2,'OK','KO')")
WScript.Echo "JavaScript: " & script

' Variables are bound before parsing.
parser.addSetVariableLong "A", 5
index = parser.parse(script, errorText)
If index < 0 Then
    WScript.Echo errorText
    WScript.Quit 1
End If
WScript.Echo "Script:     " & index
WScript.Echo "A = 5:      " & parser.execute(index, errorText)

' A compiled script reads the current values: it can run again with other values.
parser.addSetVariableLong "A", 1
WScript.Echo "A = 1:      " & parser.execute(index, errorText)

' An error is a text. Its line number includes one line for each variable of the script.
' Calls that succeed leave the text alone, so it is cleared before.
errorText = ""
index = parser.parse(parser.convert("ROUND(A, B)"), errorText)
If index >= 0 Then parser.execute index, errorText
WScript.Echo errorText
