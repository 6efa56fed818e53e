// expect: 1000001
JSON.parse('[' + '1,'.repeat(1e6) + '1]').length
