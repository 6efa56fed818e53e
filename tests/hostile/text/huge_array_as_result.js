// begins: x,x,x,
new Array(1e6).fill('x')
