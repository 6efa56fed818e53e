// next: fresh
// expect: 1,2,3
for (let c of [Object, Array, String, Function, Number, RegExp, Error]) { Object.freeze(c.prototype); Object.freeze(c); } [3, 1, 2].sort()
