// expect: 1000
'\ud83d'.repeat(1000).replace(/\ude00|(?<=\ud83d)\ud83d/gu, 'x').length
