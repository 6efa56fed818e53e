// error: RangeError: Maximum call stack size exceeded
JSON.stringify({}, function (k, v) { return { x: v }; })
