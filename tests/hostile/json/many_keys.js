// expect: 100000
Object.keys(JSON.parse('{' + Array.from({ length: 1e5 }, (_, i) => `"${i}k":1`).join() + '}')).length
