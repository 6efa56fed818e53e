'[' + LTRIM(' \t a ') + ']'           // expect: [a ]
'[' + RTRIM(' a \n ') + ']'           // expect: [ a]
'[' + ALLTRIM('\u00a0 a ') + ']'      // expect: [a]
LTRIM(5)                              // expect error: TypeError: str.ltrim is not a function
STR(10.523)                           // expect:         10
STR(10.523, 2)                        // expect: 10
STR(10.523, 0, 2)                     // expect:      10.52
STR(123456789012)                     // expect: 123456789012
STRZ(10.523, 10, 2)                   // expect: 0000010.52
STRZ(-5, 4)                           // expect: 00-5
CONCAT(10.523, 'x')                   // expect: 10.523x
CONCAT('a')                           // expect: aundefined
typeof REPEAT('a', '5')               // expect: undefined
REPEAT('a', 5)                        // expect: aaaaa
SPACE(3).length                       // expect: 3
SPACE('2').length                     // expect: 2
VAL('abc')                            // expect: abc
VAL('12a.2.54abc-12a.15abc')          // expect: 12
VAL('abc-10.50def')                   // expect: -10.5
typeof VAL('7.')                      // expect: number
CHAR(65)                              // expect: A
CHAR(8364)                            // expect: €
'[' + RPAD('ab', 4) + ']'             // expect: [ab  ]
LEFT('hello', 2)                      // expect: he
LEFT(12345, 2)                        // expect error: TypeError: str.left is not a function
'[' + RIGHT('hello', 0) + ']'         // expect: []
RIGHT('hello', 2)                     // expect: lo
SUBSTR('hello', 1, 0)                 // expect: ello
SUBSTR(12345, 1, 2)                   // expect: 23
LOCATE('abcdef abcdef', 'c', 4)       // expect: 9
LOCATE('hello', 'el', 5)              // expect: -1
OCCURS('B', 'abababa')                // expect: 0
IOCCURS('B', 'abababa')               // expect: 3
OCCURS('', 'abc')                     // expect: 2
ISALPHA('é')                          // expect: false
ISSPACE('\u3000')                     // expect: true
ISSPACE('')                           // expect: false
ISCNTRL('\x1f')                       // expect: false
ISCNTRL('\x1e')                       // expect: true
ISCNTRL('\x7f')                       // expect: true
ISASCII('\x80')                       // expect: false
ISASCII('')                           // expect: false
ISPUNCT('_')                          // expect: true
REPLACE('a.b.c', '.', '-')            // expect: a-b-c
AT('abcdabcdabcd', 'cd', 4)           // expect: -1
AT('abcdabcdabcd', 'cd', -1)          // expect: -1
AT('abcdabcdabcd', 'cd', 0)           // expect: 2
ATC('ABCD', 'cd')                     // expect: 2
RAT('abcdabcdabcd', 'cd', 3)          // expect: 2
RATC('ABCD', 'cd')                    // expect: 2
INSERT('hello', 1, 0, 'yz')           // expect: hyzello
INSERT('hello', 1, '1', 'yz')         // expect: hyz
CHRTRAN('ABCD', 'ABC', 'YZ')          // expect: YZD
CHRTRAN('ABCD', '', 'YZ')             // expect: 
ASCII('42')                           // expect: 52
ASCII('')                             // expect: NaN
LOWERCASE('ÀB')                       // expect: àb
UPPERCASE('ß')                        // expect: SS
LEN(42)                               // expect: 2
LEN('😀')                             // expect: 2
