// expect: 1000000
Object.keys(JSON.parse('{"' + 'k'.repeat(1e6) + '":1}'))[0].length
