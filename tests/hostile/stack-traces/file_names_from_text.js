// error: Error: 1
eval('throw new Error(1) //# sourceURL=' + 'x'.repeat(1e5))
