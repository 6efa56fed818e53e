// expect: undefined
typeof WebAssembly
