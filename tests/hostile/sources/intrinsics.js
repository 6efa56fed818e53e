// error: SyntaxError
%DebugPrint(1)
