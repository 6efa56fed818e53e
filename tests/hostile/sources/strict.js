// error: ReferenceError: undeclared is not defined
'use strict'; undeclared = 1
