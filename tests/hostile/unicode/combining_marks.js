// limit: 10000 ms
// expect: 1000000
('e' + '\u0301'.repeat(1e6)).normalize('NFC').length
