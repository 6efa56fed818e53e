// error: SyntaxError
new Function('}, globalThis.broken = 1, function () {')
