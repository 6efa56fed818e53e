// expect: [object Generator]
(function* () { for (;;) yield 1; })()
