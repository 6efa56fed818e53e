// next: fresh
// expect: undefinedfunction
for (let k of Object.getOwnPropertyNames(this)) delete this[k]; typeof Math + typeof LEN
