// expect: Infinity
JSON.parse('1' + '0'.repeat(1e6))
