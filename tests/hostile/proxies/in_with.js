// expect: someName
with (new Proxy({}, { has: () => true, get: (t, k) => k === Symbol.unscopables ? undefined : k })) someName
