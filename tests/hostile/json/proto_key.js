// expect: undefined
JSON.stringify(JSON.parse('{"__proto__":{"x":1}}').x)
