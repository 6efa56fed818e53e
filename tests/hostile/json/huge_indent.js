// expect: 103
JSON.stringify([[[1]]], null, 'x'.repeat(1e6)).length
