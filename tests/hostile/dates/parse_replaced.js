// next: fresh
// expect: 946684800000
Date.parse = Date.UTC = null; new Date('2000-01-01T00:00:00Z').getTime()
