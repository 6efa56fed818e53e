// expect: true
Function('return this')() === globalThis
