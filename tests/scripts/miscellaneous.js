IIF(10.50>2, 'OK', 'KO')                       // expect: OK
IIF('1>2', 'OK', 'KO')                         // expect: KO
IIF('no such name', 1, 2)                      // expect error: SyntaxError
SWITCH('5', 'a', 'b')                          // expect: undefined
SWITCH(0, 'a', 'b', 'c')                       // expect: a
SWITCH(-1, 'a')                                // expect: -1
COND(false, 'a', false, 'b', false, 'c')       // expect: undefined
COND('2>1', 'a', 'false', 'b')                 // expect: a
MIN('abc', 'def')                              // expect: abc
MIN('15', '19', '5')                           // expect: 5
MAX('15', '19', '5')                           // expect: 19
MAX('zbc', 'def')                              // expect: zbc
BETWEEN(10, 10, 20)                            // expect: false
BETWEEN(20, 10, 20)                            // expect: false
BETWEEN(11, 10, 20)                            // expect: true
BUMP(10.5, 'x', 12.34)                         // expect: 10.5
BUMP('a', 'x', 'z')                            // expect: a
BUMP(13.5, 11.22, 12.34)                       // expect: 12.34
INLIST(2, '2')                                 // expect: true
INLIST('2', 1, 3)                              // expect: false
LISTFUNCT().includes('ROUND(num, dec)')        // expect: true
LISTFUNCT().split('\r\n\r\n').length           // expect: 64
LISTFUNCT().includes('\r\nfunction LISTFUNCT()\r\n\r\n') // expect: true
LISTFUNCT().indexOf('{')                       // expect: -1
LISTFUNCT(); String(function() { return 'called again'; }) // expect: called again
AB = 1; LISTFUNCT()                            // expect error: TypeError
String(function() { return 'called'; })        // expect: called
'' + LEN                                       // expect error: ReferenceError: LEN missing argument
oldToStringFunctionProto.call(LEN).substr(0, 17) // expect: function LEN(str)
