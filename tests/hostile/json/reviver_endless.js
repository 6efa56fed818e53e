// expect: 1,1
// limit: 2000 ms
JSON.parse('[1]', function (k, v) { if (Array.isArray(this)) this.push(1); return v; })
