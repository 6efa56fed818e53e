// expect: 1000000
'x'.repeat(1e6).replace(/(?:)/g, '').length
