// expect: 3000000
'\u0390'.repeat(1e6).toUpperCase().length
