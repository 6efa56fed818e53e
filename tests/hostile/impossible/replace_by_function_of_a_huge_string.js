// dies: Fatal JavaScript invalid size error
'xy'.repeat(2 ** 25 + 16).replace(/x/g, () => 'y')
