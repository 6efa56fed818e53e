// expect: false
// limit: 100 ms
/(\u0130+|i+)+b/iu.test('\u0130i'.repeat(60))
