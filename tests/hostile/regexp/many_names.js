// limit: 5000 ms
// expect: a
new RegExp(Array.from({ length: 2000 }, (_, i) => `(?<n${i}>a)?`).join('')).exec('a').groups.n0
