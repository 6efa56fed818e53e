// next: fresh
// expect: 3,2
Array.prototype.sort = function () { return this; }; Array.prototype.length = 1e9; [3, 2].sort()
