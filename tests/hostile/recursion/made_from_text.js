// error: RangeError: Maximum call stack size exceeded
globalThis.f = new Function('return f() + 1'); f()
