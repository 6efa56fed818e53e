// expect: 1
Promise.reject(new Error('unheard')); 1
