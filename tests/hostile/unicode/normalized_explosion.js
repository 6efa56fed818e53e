// expect: 1800000
'\ufdfa'.repeat(1e5).normalize('NFKD').length
