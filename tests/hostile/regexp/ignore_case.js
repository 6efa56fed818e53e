// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
/(\u0130+|i+)+b/iu.test('\u0130i'.repeat(60))
