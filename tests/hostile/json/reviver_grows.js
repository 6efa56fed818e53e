// expect: 1,2,3,,,,,,,
JSON.parse('[1,2,3]', function (k, v) { this.length = 10; this[k] = [v]; return v; })
