// limit: 10000 ms
'\ud800'.repeat(1e5).localeCompare('\udc00'.repeat(1e5)) !== 0
