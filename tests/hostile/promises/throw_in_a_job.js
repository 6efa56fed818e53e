// expect: 1
Promise.resolve().then(() => { throw new Error('late'); }); 1
