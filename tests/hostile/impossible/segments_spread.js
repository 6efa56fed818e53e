// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
// since V8 13.6: error: The script was ended: it ran longer than its time limit of 50 ms
[...new Intl.Segmenter('en').segment('a'.repeat(2 ** 24))].length
