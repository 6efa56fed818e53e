// variable: A=5
// expect: undefined5
String(globalThis.ouraccessor) + A
