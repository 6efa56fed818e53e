// expect: x
({ toString() { Promise.resolve().then(() => { late = 1; }); return 'x'; } })
