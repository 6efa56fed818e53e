// dies: Fatal JavaScript invalid size error
'a'.repeat(2 ** 22).replace(/a/g, '$&'.repeat(40))
