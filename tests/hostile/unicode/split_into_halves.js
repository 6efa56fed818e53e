// expect: 2
'\ud83d\ude00'.split('').reverse().join('').length
