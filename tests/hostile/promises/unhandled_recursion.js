// expect: [object Promise]
(function f() { return new Promise(f); })()
