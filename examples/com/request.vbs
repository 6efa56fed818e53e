' One request from end to end, as a script makes it.
Option Explicit
Dim parser, script, index, errorText

' The server registers no name for scripts, so the object is made by its class identifier.
Set parser = GetObject("new:{1D46AEC2-C503-4983-9AB5-183DB6D45D68}")
parser.initialize

' A formula of the older language becomes JavaScript.
script = parser.convert("IIF(A>2,'OK','KO')")
WScript.Echo "JavaScript: " & script

' Variables are bound before parsing.
parser.addSetVariableLong "A", 5
index = parser.parse(script, errorText)
WScript.Echo "Script:     " & index
WScript.Echo "A = 5:      " & parser.execute(index, errorText)

' A compiled script reads the values of the moment, so it can run again with others.
parser.addSetVariableLong "A", 1
WScript.Echo "A = 1:      " & parser.execute(index, errorText)

' Failures come back as texts. The line counts the variables that the script uses.
index = parser.parse(parser.convert("ROUND(A, B)"), errorText)
parser.execute index, errorText
WScript.Echo errorText
