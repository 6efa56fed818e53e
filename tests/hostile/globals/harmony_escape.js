// next: fresh
// expect: undefinedundefinedundefinedundefinedundefined
typeof gc + typeof require + typeof process + typeof print + typeof load
