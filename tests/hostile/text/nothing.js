// expect: undefined
undefined
