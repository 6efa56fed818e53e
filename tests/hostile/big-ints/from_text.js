// limit: 5000 ms
// expect: true
BigInt('9'.repeat(1e6)) > 0n
