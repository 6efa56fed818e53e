// limit: 10000 ms
// expect: true
'\ud800'.repeat(1e5).localeCompare('\udc00'.repeat(1e5)) !== 0
