// dies: Fatal JavaScript invalid size error
'aaaaaaaaaa'.repeat(1e7).replace(/a/g, '$&$&$&$&$&$&$&$&')
