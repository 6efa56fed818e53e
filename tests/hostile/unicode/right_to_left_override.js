// expect: \u202ex
'\u202e' + 'x'
