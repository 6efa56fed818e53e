' What a script sees of results, and of everything that goes wrong.
Option Explicit
Dim parser, index, errorText, result, list, count, flag

Sub Show(label, value)
    WScript.Echo label & ": " & TypeName(value) & " [" & value & "]"
End Sub

' Elements of arrays of texts are beyond a script; compiled clients read them.
Sub ShowList(value)
    If IsArray(value) Then WScript.Echo "a list" Else WScript.Echo "no list"
End Sub

Set parser = GetObject("new:{1D46AEC2-C503-4983-9AB5-183DB6D45D68}")

WScript.Echo "-- before initialize"
index = parser.parse("LEN('ABC')", errorText)
Show "index", index
Show "error", errorText
result = parser.execute(index, errorText)
Show "result", result
Show "error", errorText
parser.initialize
Show "result", parser.execute(index, errorText)
Show "error", errorText

WScript.Echo "-- variables"
Show "unknown", parser.variableExist("A")
Show "type", parser.getVariableType("A")
Show "long", parser.addSetVariableLong("A", 5)
Show "type", parser.getVariableType("A")
Show "double", parser.addSetVariableDouble("D", 1.5)
Show "string", parser.addSetVariableString("S", "text")
Show "boolean", parser.addSetVariableBool("B", True)
Show "known", parser.variableExist("A")
Show "refused", parser.addSetVariableLong("ouraccessor", 1)
index = parser.parse("A + ' ' + D + ' ' + S + ' ' + B", errorText)
Show "result", parser.execute(index, errorText)

WScript.Echo "-- failures"
index = parser.parse(")", errorText)
Show "index", index
Show "error", errorText
result = parser.execute(index, errorText)
Show "result", result
Show "error", errorText
index = parser.parse("missing + 1", errorText)
result = parser.execute(index, errorText)
Show "result", result
Show "error", errorText
index = parser.parse("0 / 0", errorText)
result = parser.execute(index, errorText)
Show "result", result
Show "error", errorText

WScript.Echo "-- calls without a use of the result"
parser.parse "1 +", errorText
Show "error", Left(errorText, 14)
parser.execute 12345, errorText
Show "error", errorText
parser.addSetVariableLong "A", 6
parser.convert "A<>B"

WScript.Echo "-- lists"
list = parser.extractVariable("X + Y", errorText)
ShowList list
Show "error", errorText
list = parser.extractVariable("X +", errorText)
ShowList list
Show "error", Left(errorText, 14)
list = Empty
count = parser.getMathFunctions(list)
ShowList list
list = parser.getUserDocumentationManyPages()
ShowList list
Show "page", Left(parser.getUserDocumentationOnePage(True, False), 15)

WScript.Echo "-- reset"
parser.reset
Show "known", parser.variableExist("A")
Show "index", parser.parse("LEN('ABC')", errorText)
Show "result", parser.execute(0, errorText)

WScript.Echo "-- mistakes of the script"
On Error Resume Next
parser.noSuchMethod
Show "no method", Err.Number
Err.Clear
errorText = "kept"
parser.execute "no number", errorText
Show "no number", Err.Number
Show "error", errorText
WScript.Echo "-- end"
