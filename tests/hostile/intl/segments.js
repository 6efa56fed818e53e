// limit: 20000 ms
// expect: 10000
typeof Intl.Segmenter === 'function' ? [...new Intl.Segmenter('en').segment('a\u0301'.repeat(1e4))].length : 10000
