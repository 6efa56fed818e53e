// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
/(\u{1F600}+)+b/u.test('\u{1F600}'.repeat(100))
