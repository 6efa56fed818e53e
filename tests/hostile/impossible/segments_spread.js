// hangs: 1000 ms
// limit: 100 ms
[...new Intl.Segmenter('en').segment('a'.repeat(2 ** 24))].length
