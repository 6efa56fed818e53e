// generate: 1 'switch(1){'
// generate: 100000 'case 0:'
// limit: 20000 ms
// expect: undefined
}
