// expect: 10000000
'i'.repeat(1e7).toLocaleUpperCase('tr').length
