// next: fresh
// error: TypeError
String.prototype[Symbol.iterator] = () => 5; [...'abc']
