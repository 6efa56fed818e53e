// expect: 1
new (Object.getPrototypeOf(function* () { }).constructor)('for (;;) yield 1')().next().value
