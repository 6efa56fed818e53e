// next: fresh
// expect: 1
console.log('x'.repeat(1000)); console.table([[1]]); console.trace(); 1
