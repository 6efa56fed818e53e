// expect: 1
JSON.parse('['.repeat(1e6) + ']'.repeat(1e6)).length
