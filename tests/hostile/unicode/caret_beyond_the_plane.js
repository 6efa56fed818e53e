// error: ReferenceError: missing is not defined
'😀😀😀' + missing
