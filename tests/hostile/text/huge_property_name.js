// error: TypeError: Cannot read properties of null
null['x'.repeat(2 ** 24)]
