// next: fresh
// error: TypeError
Object.defineProperty(Function.prototype, Symbol.hasInstance, { value: () => { for (;;); } }); ({}) instanceof Object
