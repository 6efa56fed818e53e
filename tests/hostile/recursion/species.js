// error: RangeError: Maximum call stack size exceeded
{ class A extends Array { static get [Symbol.species]() { return new A(1).map(x => x); } } new A(1).map(x => x); }
